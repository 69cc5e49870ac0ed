// SPDX-License-Identifier: MIT
#include "changes/settingName.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVCommonTools/localized.hpp"
#include "foundation/Bundle.hpp"
#include "resources/resource_bundle_accessor.hpp"

#include <string_view>

namespace QEVSettings {

namespace {

// The module, its sibling modules and the host each translate the titles of their own settings.
std::string translated(const std::string& title) {
  std::string text = localized(title);
  if (text == title) text = QEVCommonTools::localized(title);
  return text == title ? foundation::Bundle::mainBundle().localizedString(title) : text;
}

}  // namespace

std::string settingName(const PreferenceDescriptor& descriptor) {
  std::string name = translated(descriptor.title);
  for (const std::string_view colon : {":", "："}) {
    if (name.ends_with(colon)) name.resize(name.size() - colon.size());
  }
  return std::string(QEVCommonTools::trimmed(name));
}

}  // namespace QEVSettings
