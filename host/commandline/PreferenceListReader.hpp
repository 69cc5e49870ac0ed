#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <string>

namespace zorvantine {

// Reads preferences in any form that the command line writes them in: a property list, XML or
// binary, or the JSON of `prefs list --format json`. Every value keeps its type. JSON is told by
// its first character, a brace. It has no form of its own for data and dates inside an array or a
// dictionary, so they are read as text.
foundation::Result<QEVSettings::PreferenceDictionary> readPreferenceList(std::string bytes);

}  // namespace zorvantine
