#pragma once

#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"

namespace QEVDependencies {

class QEVNetworkProtocol;

// The application's ports controller, as a protocol record sees it. Main thread.
class QEVPortsControllerProtocol {
public:
  QEVPortsControllerProtocol() = default;
  QEVPortsControllerProtocol(const QEVPortsControllerProtocol&) = delete;
  QEVPortsControllerProtocol& operator=(const QEVPortsControllerProtocol&) = delete;
  virtual ~QEVPortsControllerProtocol() = default;

  // An analyzer goes from now on by the record's member `changed` as it stands.
  virtual void registered(QEVNetworkProtocol& protocol, QEVNetworkProtocolProperty changed) = 0;

protected:
  // Copies the member to the record's last registered one. Only a controller can.
  static void bringUpToDate(QEVNetworkProtocol& protocol, QEVNetworkProtocolProperty changed);
};

}  // namespace QEVDependencies
