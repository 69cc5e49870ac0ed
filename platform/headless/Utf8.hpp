#pragma once

#include <string_view>
#include <vector>

namespace headless {

struct Character {
  std::string_view bytes;
  char32_t codePoint;
};

// What stands for a byte that belongs to no character.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// The text character by character. No byte is lost: one that is not UTF-8 is a replacement character.
std::vector<Character> characters(std::string_view text);

}  // namespace headless
