// SPDX-License-Identifier: MIT
#include "QEVCommonTools/localized.hpp"

#include "foundation/Bundle.hpp"

#include <memory>

namespace QEVCommonTools {

namespace {

using foundation::Bundle;

std::shared_ptr<Bundle> findBundle() {
  const Bundle& main = Bundle::mainBundle();
  for (const auto& folder : {main.resourceFolder(), main.folder()}) {
    if (auto bundle = Bundle::open(folder / "QEVCommonTools_QEVCommonTools.bundle")) return bundle;
  }
  return nullptr;
}

}  // namespace

std::string localized(std::string_view key) {
  static const std::shared_ptr<Bundle> bundle = findBundle();
  return bundle ? bundle->localizedString(key) : std::string(key);
}

}  // namespace QEVCommonTools
