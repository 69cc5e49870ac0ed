// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

#include <string>
#include <vector>

namespace QEVSettings {

// A row with the mark of a changed setting before it, and a context menu: back to the default, copy
// the key, what is this. Nothing of the row moves. In a window without a SettingsCatalogue in its
// environment, and without keys, the row is returned as it is. Called in a body.
//
//     markedRow({kPrefTimezoneString}, SettingsIconRow{…})
//
// A reset goes through the SettingWriter of the environment; without one, the row offers none.
viewkit::View markedRow(std::vector<std::string> keys, const viewkit::View& row);

// The label of such a row that stands beside it: it has the menu without the mark.
viewkit::View rowLabel(std::vector<std::string> keys, const viewkit::View& label);

}  // namespace QEVSettings
