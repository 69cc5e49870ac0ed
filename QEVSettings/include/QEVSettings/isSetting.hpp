// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace QEVSettings {

// Whether the key holds a setting of the user. The selected analyzer, the version of the schema and
// the time of the last update check are what the program remembers of itself.
bool isSetting(std::string_view key);

}  // namespace QEVSettings
