// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVPlugInStructure.hpp"
#include "foundation/UUID.hpp"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace QEVModels {

// The registry of the loaded analyzer plug-ins, in the order of registration. A page shows the
// plug-ins that were registered when it was built. Main thread.
//
//     QEVPlugInsController::sharedManager().registerPlugIn(std::move(plugIn));
class QEVPlugInsController {
public:
  // The one registry of the application.
  static QEVPlugInsController& sharedManager();

  using PlugIns = std::vector<QEVDependencies::QEVPlugInStructure>;
  const PlugIns& plugInStructs() const { return *plugInStructs_; }
  // The current list, which later registrations do not change. The list is copied only when a
  // plug-in is registered or removed while a snapshot exists.
  std::shared_ptr<const PlugIns> snapshot() const { return plugInStructs_; }

  // Differs after each registration and removal.
  std::uint64_t revision() const { return revision_; }

  // For the host, when it loads and unloads plug-ins. The registry owns the preferences object of a
  // registered plug-in; all other references are weak. A plug-in with a registered id replaces the
  // one that has it. Removing an unknown id does nothing.
  void registerPlugIn(QEVDependencies::QEVPlugInStructure plugIn);
  void unregisterPlugIn(foundation::UUID id);

private:
  QEVPlugInsController() = default;

  // The list to change: a copy if a snapshot shares it.
  PlugIns& changed();

  std::uint64_t revision_ = 0;
  std::shared_ptr<PlugIns> plugInStructs_ = std::make_shared<PlugIns>();
  // The preferences object of each registered plug-in, by the plug-in's id.
  std::map<foundation::UUID, std::shared_ptr<QEVDependencies::QEVPreferencesObject>> preferences_;
};

}  // namespace QEVModels
