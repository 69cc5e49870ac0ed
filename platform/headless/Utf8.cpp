#include "Utf8.hpp"

#include <array>
#include <cstddef>

namespace headless {

namespace {

Character firstCharacter(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const Character broken{text.substr(0, 1), kReplacementCharacter};
  const unsigned char lead = byte(0);
  if (lead < 0x80) return {text.substr(0, 1), lead};
  if (lead < 0xC0 || lead > 0xF7) return broken;
  const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (text.size() < length) return broken;
  char32_t codePoint = lead & (0x7FU >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return broken;
    codePoint = codePoint << 6U | (byte(i) & 0x3FU);
  }
  constexpr std::array<char32_t, 5> kSmallestOfLength{0, 0, 0x80, 0x800, 0x10000};
  const bool isSurrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
  if (codePoint < kSmallestOfLength.at(length) || codePoint > 0x10FFFF || isSurrogate) return broken;
  return {text.substr(0, length), codePoint};
}

}  // namespace

std::vector<Character> characters(std::string_view text) {
  std::vector<Character> result;
  result.reserve(text.size());
  while (!text.empty()) {
    result.push_back(firstCharacter(text));
    text.remove_prefix(result.back().bytes.size());
  }
  return result;
}

}  // namespace headless
