// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

namespace headless {

struct Character {
  std::string_view bytes;
  char32_t codePoint;
};

// The text, character by character. Each byte that is not UTF-8 is a character of its own, U+FFFD.
std::vector<Character> characters(std::string_view text);

}  // namespace headless
