#pragma once

#include "QEVDependencies/QEVPortsControllerProtocol.hpp"

#include <memory>

namespace QEVModels {

// The application's ports controller: keeps the last registered values of the records true.
class QEVPortsController final : public QEVDependencies::QEVPortsControllerProtocol {
public:
  // The one that every record reports to.
  static const std::shared_ptr<QEVDependencies::QEVPortsControllerProtocol>&
  sharedPortsController();

  void registered(QEVDependencies::QEVNetworkProtocol& protocol,
                  QEVDependencies::QEVNetworkProtocolProperty changed) override;
};

}  // namespace QEVModels
