// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <optional>
#include <string>

namespace QEVSettings {

// The user's value of one key before and after a write. Nothing stands for a key that the user's
// store does not have.
struct SettingChange {
  std::string key;
  std::optional<PreferenceValue> before = std::nullopt;
  std::optional<PreferenceValue> after = std::nullopt;
};

}  // namespace QEVSettings
