#pragma once

#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "foundation/UUID.hpp"

#include <set>
#include <vector>

namespace QEVModels {

// The loaded analyzer plug-ins, in the order of registration. A page keeps to those it was built with. Main thread.
class QEVPlugInsController {
public:
  // The one registry of the application.
  static QEVPlugInsController& sharedManager();

  const std::vector<QEVDependencies::QEVPlugInStructure>& plugInStructs() const { return plugInStructs_; }

  // For the host, while it loads and unloads plug-ins. A plug-in whose id is registered already takes
  // the place of the one that has it; removing an unknown one does nothing.
  void registerPlugIn(QEVDependencies::QEVPlugInStructure plugIn);
  void unregisterPlugIn(foundation::UUID id);

private:
  QEVPlugInsController() = default;

  std::vector<QEVDependencies::QEVPlugInStructure> plugInStructs_;
  std::set<foundation::UUID> ids_;
};

}  // namespace QEVModels
