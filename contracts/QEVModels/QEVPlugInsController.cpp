// SPDX-License-Identifier: MIT
#include "QEVModels/QEVPlugInsController.hpp"

#include <algorithm>
#include <utility>

namespace QEVModels {

using QEVDependencies::QEVPlugInStructure;

QEVPlugInsController& QEVPlugInsController::sharedManager() {
  static QEVPlugInsController shared;
  return shared;
}

void QEVPlugInsController::registerPlugIn(QEVPlugInStructure plugIn) {
  const auto [kept, isNew] = preferences_.try_emplace(plugIn.id);
  // The former object is destroyed last: its destructor may use the registry.
  const auto before = std::exchange(kept->second, plugIn.plugInPreferencesInstance.lock());
  if (isNew) {
    changed().push_back(std::move(plugIn));
  } else {
    *std::ranges::find(changed(), plugIn.id, &QEVPlugInStructure::id) = std::move(plugIn);
  }
}

void QEVPlugInsController::unregisterPlugIn(foundation::UUID id) {
  const auto unloaded = preferences_.extract(id);
  if (unloaded)
    std::erase_if(changed(), [&](const QEVPlugInStructure& plugIn) { return plugIn.id == id; });
}

QEVPlugInsController::PlugIns& QEVPlugInsController::changed() {
  ++revision_;
  if (plugInStructs_.use_count() > 1) plugInStructs_ = std::make_shared<PlugIns>(*plugInStructs_);
  return *plugInStructs_;
}

}  // namespace QEVModels
