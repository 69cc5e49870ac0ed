// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

#include <string>
#include <vector>

namespace QEVSettings {

// A row of a page, and the keys of the settings that it shows. The row is laid out as it is without
// this. A SettingsNavigation finds the row by each of the keys, where the environment has one. The
// row has a mark and a context menu, as `markedRow` says. Called in a body.
//
//     settingRow({kPrefTimezoneString}, SettingsIconRow{…})
viewkit::View settingRow(std::vector<std::string> keys, const viewkit::View& row);

}  // namespace QEVSettings
