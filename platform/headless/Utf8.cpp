#include "Utf8.hpp"

#include "foundation/Unicode.hpp"

#include <algorithm>
#include <cstddef>

namespace headless {

namespace {

// Of a well-formed character.
char32_t codePointOf(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  if (bytes.size() == 1) return lead;
  char32_t codePoint = lead & (0x7FU >> bytes.size());
  for (const char byte : bytes.substr(1)) codePoint = codePoint << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
  return codePoint;
}

}  // namespace

std::vector<Character> characters(std::string_view text) {
  std::vector<Character> result;
  result.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = foundation::utf8CharacterLength(text);
    const std::string_view bytes = text.substr(0, std::max<std::size_t>(length, 1));
    result.push_back({bytes, length == 0 ? kReplacementCharacter : codePointOf(bytes)});
    text.remove_prefix(bytes.size());
  }
  return result;
}

}  // namespace headless
