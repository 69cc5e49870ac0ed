// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <string_view>

namespace QEVSettings {

// Whether the key is one of the two that hold the appearance, which is one setting for the user.
inline bool isOfAppearance(std::string_view key) {
  return key == kAppearanceName.name || key == kAppearanceUseSystem.name;
}

}  // namespace QEVSettings
