// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <initializer_list>
#include <string_view>

namespace sparkle {

// An error whose message says, in the language of the user, why a check failed. The message is a
// clause without a capital and a full stop. `key` is the English text, which is looked up in the
// string table of the application; "%1" and "%2" stand for the values. Main thread only.
foundation::Error reason(std::string_view key, std::initializer_list<std::string_view> values = {});

}  // namespace sparkle
