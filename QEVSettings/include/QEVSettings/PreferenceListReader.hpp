// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <string>

namespace QEVSettings {

// Reads preferences in any form that the command line writes them in: a property list, XML or
// binary, or the JSON of `prefs list --format json`. Every value keeps its type. JSON is told by
// its first character, a brace. It has no form of its own for data and dates inside an array or a
// dictionary, so they are read as text.
foundation::Result<PreferenceDictionary> readPreferenceList(std::string bytes);

// The same for a list that the user writes: in JSON, a member may also be the value itself.
//
//     {"com_velloquin_zorvantine_appearanceUseSystem": true}
foundation::Result<PreferenceDictionary> readWrittenPreferenceList(std::string bytes);

}  // namespace QEVSettings
