#include "foundation/Unicode.hpp"

#include <cstdint>

namespace foundation {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;

std::uint8_t byteAt(std::string_view text, std::size_t at) { return static_cast<std::uint8_t>(text[at]); }

}  // namespace

std::size_t utf8CharacterLength(std::string_view text) {
  if (text.empty()) return 0;
  const std::uint8_t lead = byteAt(text, 0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
  if (length == 0 || text.size() < length) return 0;
  // The second byte of four of the lead bytes has a narrower range: no overlong form, no surrogate,
  // nothing above U+10FFFF.
  const std::uint8_t lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  const std::uint8_t highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  if (byteAt(text, 1) < lowest || byteAt(text, 1) > highest) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if ((byteAt(text, i) & 0xC0) != 0x80) return 0;
  }
  return length;
}

bool isValidUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = utf8CharacterLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string repairedUtf8(std::string_view text) {
  std::string repaired;
  repaired.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = utf8CharacterLength(text);
    if (length == 0) {
      appendUtf8(repaired, kReplacementCharacter);
      text.remove_prefix(1);
    } else {
      repaired += text.substr(0, length);
      text.remove_prefix(length);
    }
  }
  return repaired;
}

void appendUtf8(std::string& text, char32_t character) {
  if (character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF)) character = kReplacementCharacter;
  const auto trailing = [&](int shift) { return static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += {static_cast<char>(0xC0 | (character >> 6)), trailing(0)};
  } else if (character < 0x10000) {
    text += {static_cast<char>(0xE0 | (character >> 12)), trailing(6), trailing(0)};
  } else {
    text += {static_cast<char>(0xF0 | (character >> 18)), trailing(12), trailing(6), trailing(0)};
  }
}

}  // namespace foundation
