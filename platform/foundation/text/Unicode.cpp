// SPDX-License-Identifier: MIT
#include "foundation/Unicode.hpp"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <array>
#include <cstdint>

namespace foundation {

namespace {

// The code point of the character that the text begins with, and its length; a negative code point
// when the bytes there are not well formed. The text is not empty.
struct Decoded {
  UChar32 codePoint;
  std::size_t length;
};

Decoded decoded(std::string_view text) {
  std::size_t length = 0;
  UChar32 codePoint = 0;
  U8_NEXT(text.data(), length, text.size(), codePoint);
  return {.codePoint = codePoint, .length = length};
}

// Whether the first byte of each unit is its high byte.
bool isBigEndian(std::string_view bytes) {
  if (bytes.starts_with("\xFE\xFF")) return true;
  if (bytes.starts_with("\xFF\xFE")) return false;
  std::ptrdiff_t evenZeros = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\0') evenZeros += i % 2 == 0 ? 1 : -1;
  }
  return evenZeros > 0;
}

}  // namespace

std::optional<Utf8Character> firstCharacter(std::string_view text) {
  if (text.empty()) return std::nullopt;
  const auto [codePoint, length] = decoded(text);
  if (codePoint < 0) return std::nullopt;
  return Utf8Character{.codePoint = static_cast<char32_t>(codePoint), .length = length};
}

std::size_t utf8CharacterLength(std::string_view text) {
  if (text.empty()) return 0;
  const auto [codePoint, length] = decoded(text);
  return codePoint < 0 ? 0 : length;
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

void appendUtf8(std::string& text, char32_t codePoint) {
  std::array<char, U8_MAX_LENGTH> bytes{};
  std::size_t length = 0;
  bool isError = false;
  U8_APPEND(bytes, length, bytes.size(), codePoint, isError);
  if (isError) return appendUtf8(text, kReplacementCharacter);
  text.append(bytes.data(), length);
}

std::optional<std::string> utf8FromUtf16(std::string_view bytes) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  const std::size_t high = isBigEndian(bytes) ? 0 : 1;
  const auto unit = [&](std::size_t at) {
    return static_cast<char16_t>(static_cast<std::uint8_t>(bytes[at + high]) << 8 |
                                 static_cast<std::uint8_t>(bytes[at + 1 - high]));
  };
  std::string text;
  text.reserve(bytes.size());
  constexpr char16_t byteOrderMark = 0xFEFF;
  std::size_t at = !bytes.empty() && unit(0) == byteOrderMark ? 2 : 0;
  while (at < bytes.size()) {
    char32_t codePoint = unit(at);
    at += 2;
    if (U_IS_SURROGATE(codePoint)) {
      if (U16_IS_TRAIL(codePoint) || at == bytes.size() || !U16_IS_TRAIL(unit(at)))
        return std::nullopt;
      codePoint = U16_GET_SUPPLEMENTARY(codePoint, unit(at));
      at += 2;
    }
    appendUtf8(text, codePoint);
  }
  return text;
}

}  // namespace foundation
