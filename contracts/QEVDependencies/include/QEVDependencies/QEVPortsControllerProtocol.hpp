#pragma once

namespace QEVDependencies {

class QEVNetworkProtocol;

// The application's ports controller, as a protocol record sees it. Main thread.
class QEVPortsControllerProtocol {
public:
  QEVPortsControllerProtocol() = default;
  QEVPortsControllerProtocol(const QEVPortsControllerProtocol&) = delete;
  QEVPortsControllerProtocol& operator=(const QEVPortsControllerProtocol&) = delete;
  virtual ~QEVPortsControllerProtocol() = default;

  // An analyzer watches from now on what the record says as it stands.
  virtual void registered(QEVNetworkProtocol& protocol) = 0;

protected:
  // Copies the record's name, ports and source to its last registered ones. Only a controller can.
  static void bringUpToDate(QEVNetworkProtocol& protocol);
};

}  // namespace QEVDependencies
