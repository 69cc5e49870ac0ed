// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zorvantine {

// A longer key moves only its own value to the right.
inline constexpr std::size_t kWidestKey = 60;

// A value as text for the user: data that is text, such as a list of protocols, as text.
std::string readableForm(const QEVSettings::PreferenceValue& value);

// "KEY  type  value" on one line for the user, or "KEY  removed" without a value. The key is padded
// to a width in bytes, the value is shortened, and data that is text is shown as text.
std::string preferenceLine(std::string_view key,
                           const std::optional<QEVSettings::PreferenceValue>& value,
                           std::size_t keyWidth = 0);

}  // namespace zorvantine
