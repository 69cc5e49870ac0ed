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
  if (ids_.insert(plugIn.id).second) {
    changed().push_back(std::move(plugIn));
  } else {
    *std::ranges::find(changed(), plugIn.id, &QEVPlugInStructure::id) = std::move(plugIn);
  }
}

void QEVPlugInsController::unregisterPlugIn(foundation::UUID id) {
  ids_.erase(id);
  std::erase_if(changed(), [&](const QEVPlugInStructure& plugIn) { return plugIn.id == id; });
}

QEVPlugInsController::PlugIns& QEVPlugInsController::changed() {
  if (plugInStructs_.use_count() > 1) plugInStructs_ = std::make_shared<PlugIns>(*plugInStructs_);
  return *plugInStructs_;
}

}  // namespace QEVModels
