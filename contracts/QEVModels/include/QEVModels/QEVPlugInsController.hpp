#pragma once

#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "foundation/UUID.hpp"

#include <map>
#include <memory>
#include <vector>

namespace QEVModels {

// The loaded analyzer plug-ins, in the order of registration. A page keeps to those it was built
// with. Main thread.
class QEVPlugInsController {
public:
  // The one registry of the application.
  static QEVPlugInsController& sharedManager();

  using PlugIns = std::vector<QEVDependencies::QEVPlugInStructure>;
  const PlugIns& plugInStructs() const { return *plugInStructs_; }
  // The list as it is now, for whoever wants to keep it: it stays like this whatever is registered
  // later, and copies nothing as long as nothing is.
  std::shared_ptr<const PlugIns> snapshot() const { return plugInStructs_; }

  // For the host, while it loads and unloads plug-ins. The registry keeps a plug-in's preferences
  // object alive from its registration to its removal; all others refer to it weakly. A plug-in
  // whose id is registered already takes the place of the one that has it; removing an unknown one
  // does nothing.
  void registerPlugIn(QEVDependencies::QEVPlugInStructure plugIn);
  void unregisterPlugIn(foundation::UUID id);

private:
  QEVPlugInsController() = default;

  // The list, for a change that no snapshot may see.
  PlugIns& changed();

  std::shared_ptr<PlugIns> plugInStructs_ = std::make_shared<PlugIns>();
  // The preferences object of each registered plug-in, by the plug-in's id.
  std::map<foundation::UUID, std::shared_ptr<QEVDependencies::QEVPreferencesObject>> preferences_;
};

}  // namespace QEVModels
