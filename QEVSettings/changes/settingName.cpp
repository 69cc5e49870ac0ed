// SPDX-License-Identifier: MIT
#include "QEVSettings/settingName.hpp"

#include "QEVCommonTools/PlainText.hpp"
#include "QEVSettings/settingText.hpp"

namespace QEVSettings {

std::string withoutColon(std::string_view title) {
  for (const std::string_view colon : {":", "："}) {
    if (title.ends_with(colon)) title.remove_suffix(colon.size());
  }
  return std::string(QEVCommonTools::trimmed(title));
}

std::string settingName(const PreferenceDescriptor& descriptor) {
  return withoutColon(settingText(descriptor.title));
}

}  // namespace QEVSettings
