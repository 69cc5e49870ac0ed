// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/PreferenceHistory.hpp"

#include <cstddef>
#include <string>

namespace zorvantine {

// What a key held before or after a change, for the user: the value on one line, cut to a number of
// characters, or in the user's language that there was none, how many bytes it had, or that it is a
// secret.
std::string historyText(const foundation::RememberedValue& value, std::size_t characters);

}  // namespace zorvantine
