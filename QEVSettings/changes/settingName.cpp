// SPDX-License-Identifier: MIT
#include "QEVSettings/settingName.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVSettings/settingText.hpp"

#include <string_view>

namespace QEVSettings {

std::string settingName(const PreferenceDescriptor& descriptor) {
  std::string name = settingText(descriptor.title);
  for (const std::string_view colon : {":", "："}) {
    if (name.ends_with(colon)) name.resize(name.size() - colon.size());
  }
  return std::string(QEVCommonTools::trimmed(name));
}

}  // namespace QEVSettings
