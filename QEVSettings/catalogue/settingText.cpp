// SPDX-License-Identifier: MIT
#include "catalogue/settingText.hpp"

#include "QEVCommonTools/localized.hpp"
#include "foundation/Bundle.hpp"
#include "resources/resource_bundle_accessor.hpp"

namespace QEVSettings {

std::string settingText(std::string_view key) {
  if (std::string text = localized(key); text != key) return text;
  if (std::string text = QEVCommonTools::localized(key); text != key) return text;
  return foundation::Bundle::mainBundle().localizedString(key);
}

}  // namespace QEVSettings
