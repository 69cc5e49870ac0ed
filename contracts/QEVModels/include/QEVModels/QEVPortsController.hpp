// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVPortsControllerProtocol.hpp"

#include <memory>

namespace QEVModels {

// The application's ports controller. It keeps the last registered values of records up to date.
//
//     protocol->setPortController(QEVPortsController::sharedPortsController());
class QEVPortsController final : public QEVDependencies::QEVPortsControllerProtocol {
public:
  // The controller of every record that the settings edit.
  static const std::shared_ptr<QEVDependencies::QEVPortsControllerProtocol>&
  sharedPortsController();

  void registered(QEVDependencies::QEVNetworkProtocol& protocol,
                  QEVDependencies::QEVNetworkProtocolProperty changed) override;
};

}  // namespace QEVModels
