// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

#include <functional>
#include <string>
#include <vector>

namespace QEVCommonTools {

// What a window adds to the rows that show its settings. An object of the environment.
//
//     const SettingRowStyle style{.decorate = [](std::vector<std::string> keys,
//                                                const viewkit::View& row) {
//       return row.accessibilityLabel(keys.front());
//     }};
struct SettingRowStyle {
  // The row with what the window adds. `keys` are the row's keys in the preferences store.
  std::function<viewkit::View(std::vector<std::string> keys, const viewkit::View& row)> decorate;
  // The same for the label of a row that stands beside it; empty for nothing.
  std::function<viewkit::View(std::vector<std::string> keys, const viewkit::View& label)>
      decorateLabel = {};
};

// Says which settings a view shows, so that a window can lead the user to it. Called in a body. The
// view stays as it is in a window without a SettingRowStyle, and without keys.
//
//     settingRow({QEVCaptureViewModel::kFilterKey}, field)
viewkit::View settingRow(std::vector<std::string> keys, const viewkit::View& row);

// The same for a label that stands beside such a view, as in a form.
viewkit::View settingLabel(std::vector<std::string> keys, const viewkit::View& label);

}  // namespace QEVCommonTools
