#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace zorvantine {

// A key wider than this pushes its value to the right instead of all of them.
inline constexpr std::size_t kWidestKey = 60;

// "KEY  type  value" on one line for a person to read, the key filled up to a width in bytes and
// the value shortened, data as the text that it is if it is any; "KEY  removed" when there is no
// value.
std::string preferenceLine(std::string_view key,
                           const std::optional<QEVSettings::PreferenceValue>& value,
                           std::size_t keyWidth = 0);

}  // namespace zorvantine
