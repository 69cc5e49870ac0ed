// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVNetworkProtocolProperty.hpp"

namespace QEVDependencies {

class QEVNetworkProtocol;

// The interface of the application's ports controller to protocol records. Main thread.
//
//     struct PortsController final : QEVPortsControllerProtocol {
//       void registered(QEVNetworkProtocol& record, QEVNetworkProtocolProperty changed) override {
//         bringUpToDate(record, changed);
//       }
//     };
class QEVPortsControllerProtocol {
public:
  QEVPortsControllerProtocol() = default;
  QEVPortsControllerProtocol(const QEVPortsControllerProtocol&) = delete;
  QEVPortsControllerProtocol& operator=(const QEVPortsControllerProtocol&) = delete;
  virtual ~QEVPortsControllerProtocol() = default;

  // An analyzer has accepted the current value of the record's member `changed`.
  virtual void registered(QEVNetworkProtocol& protocol, QEVNetworkProtocolProperty changed) = 0;

protected:
  // Makes the member's current value its last registered one. Only controllers may do that.
  static void bringUpToDate(QEVNetworkProtocol& protocol, QEVNetworkProtocolProperty changed);
};

}  // namespace QEVDependencies
