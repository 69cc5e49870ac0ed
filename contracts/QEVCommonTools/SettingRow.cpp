// SPDX-License-Identifier: MIT
#include "QEVCommonTools/SettingRow.hpp"

#include "viewkit/Environment.hpp"

#include <utility>

namespace QEVCommonTools {

viewkit::View settingRow(std::vector<std::string> keys, const viewkit::View& row) {
  const auto style = viewkit::Environment::current().object<SettingRowStyle>();
  return style && !keys.empty() ? style->decorate(std::move(keys), row) : row;
}

}  // namespace QEVCommonTools
