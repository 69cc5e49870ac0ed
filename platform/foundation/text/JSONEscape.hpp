// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/Result.hpp"

#include <string_view>

namespace foundation {

// Takes one escape of a JSON string, from its backslash to its end, off the front of the text, and
// returns the code point it stands for. A surrogate pair is one escape. The error says what is
// wrong with the escape.
Result<char32_t> takeJSONEscape(std::string_view& text);

}  // namespace foundation
