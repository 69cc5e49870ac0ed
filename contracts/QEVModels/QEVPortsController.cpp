// SPDX-License-Identifier: MIT
#include "QEVModels/QEVPortsController.hpp"

namespace QEVModels {

const std::shared_ptr<QEVDependencies::QEVPortsControllerProtocol>&
QEVPortsController::sharedPortsController() {
  static const std::shared_ptr<QEVDependencies::QEVPortsControllerProtocol> shared =
      std::make_shared<QEVPortsController>();
  return shared;
}

void QEVPortsController::registered(QEVDependencies::QEVNetworkProtocol& protocol,
                                    QEVDependencies::QEVNetworkProtocolProperty changed) {
  bringUpToDate(protocol, changed);
}

}  // namespace QEVModels
