// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <optional>
#include <string>

namespace QEVSettings {

// The user's value of one key before and after a write. Nothing stands for a key that the user's
// store does not have.
//
//     token = recording.record([](const SettingChange& change) {
//       if (!change.after) show(change.key + " was removed");
//     });
struct SettingChange {
  std::string key;
  std::optional<PreferenceValue> before = std::nullopt;
  std::optional<PreferenceValue> after = std::nullopt;
};

}  // namespace QEVSettings
