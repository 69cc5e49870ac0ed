// SPDX-License-Identifier: MIT
#include "fields/FormGrid.hpp"

#include "QEVCommonTools/SettingRow.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Text.hpp"

#include <utility>

namespace QEVCoreComponents {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

GridRow formRow(const std::string& label, const View& control, std::vector<std::string> keys) {
  return {.cells = {
              QEVCommonTools::settingLabel(keys, Text(label)),
              QEVCommonTools::settingRow(std::move(keys), control),
          }};
}

View formGrid(std::vector<GridRow> rows) {
  return Grid({.horizontalAlignment = HorizontalAlignment::leading,
               .verticalAlignment = VerticalAlignment::firstTextBaseline,
               .horizontalSpacing = points(Spacing::s7),
               .verticalSpacing = points(Spacing::s5)},
              std::move(rows));
}

}  // namespace QEVCoreComponents
