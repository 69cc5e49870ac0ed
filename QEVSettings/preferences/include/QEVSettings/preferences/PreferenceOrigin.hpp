// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace QEVSettings {

// Where the value in force comes from. The layers stand in their order: the first that has a value
// under the key wins.
//
//     if (store.origin(key) == PreferenceOrigin::standard) show("not set, so the default applies");
enum class PreferenceOrigin : std::uint8_t {
  locked,         // an administrator set it, and nobody else may change it
  commandLine,    // given for this run of the program
  user,           // the user's store
  administrator,  // a default that an administrator set
  standard,       // no layer has a value: the default of the setting
};

// "locked", "command-line", "user", "administrator" or "default".
std::string_view nameOf(PreferenceOrigin origin);

}  // namespace QEVSettings
