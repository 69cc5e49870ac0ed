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
    plugInStructs_.push_back(std::move(plugIn));
  } else {
    *std::ranges::find(plugInStructs_, plugIn.id, &QEVPlugInStructure::id) = std::move(plugIn);
  }
}

void QEVPlugInsController::unregisterPlugIn(foundation::UUID id) {
  ids_.erase(id);
  std::erase_if(plugInStructs_, [&](const QEVPlugInStructure& plugIn) { return plugIn.id == id; });
}

}  // namespace QEVModels
