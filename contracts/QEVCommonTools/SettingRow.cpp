// SPDX-License-Identifier: MIT
#include "QEVCommonTools/SettingRow.hpp"

#include "viewkit/Environment.hpp"

#include <utility>

namespace QEVCommonTools {

viewkit::View settingRow(std::vector<std::string> keys, const viewkit::View& row) {
  const auto style = viewkit::Environment::current().object<SettingRowStyle>();
  return style && !keys.empty() ? style->decorate(std::move(keys), row) : row;
}

viewkit::View settingLabel(std::vector<std::string> keys, const viewkit::View& label) {
  const auto style = viewkit::Environment::current().object<SettingRowStyle>();
  return style && style->decorateLabel && !keys.empty()
             ? style->decorateLabel(std::move(keys), label)
             : label;
}

}  // namespace QEVCommonTools
