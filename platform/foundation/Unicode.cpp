#include "foundation/Unicode.hpp"

#include "LongUppercases.hpp"

#include <algorithm>
#include <clocale>
#include <cstdint>
#include <cwctype>
#include <iterator>

namespace foundation {

namespace {

constexpr char32_t kReplacementCharacter = 0xFFFD;

std::uint8_t byteAt(std::string_view text, std::size_t at) { return static_cast<std::uint8_t>(text[at]); }

// Of a well-formed character.
char32_t decoded(std::string_view character) {
  const std::uint8_t lead = byteAt(character, 0);
  if (character.size() == 1) return lead;
  char32_t value = lead & (0x7FU >> character.size());
  for (const char c : character.substr(1)) value = value << 6 | (static_cast<std::uint8_t>(c) & 0x3FU);
  return value;
}

// The C library's table of the characters of Unicode, which its locale "C" does not use. Kept for good.
char32_t simpleUppercase(char32_t character) {
  static const locale_t unicode = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (unicode != nullptr) return static_cast<char32_t>(::towupper_l(static_cast<wint_t>(character), unicode));
  return character >= 'a' && character <= 'z' ? character - 'a' + 'A' : character;
}

void appendUppercase(std::string& text, char32_t character) {
  const auto* const found =
      std::lower_bound(std::begin(kLongUppercases), std::end(kLongUppercases), character,
                       [](const LongUppercase& entry, char32_t sought) { return entry.character < sought; });
  if (found != std::end(kLongUppercases) && found->character == character) {
    text += found->uppercase;
  } else {
    appendUtf8(text, simpleUppercase(character));
  }
}

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

std::string uppercased(std::string_view text) {
  std::string capitals;
  capitals.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = utf8CharacterLength(text);
    if (length == 0) {
      capitals += text.front();
      text.remove_prefix(1);
    } else {
      appendUppercase(capitals, decoded(text.substr(0, length)));
      text.remove_prefix(length);
    }
  }
  return capitals;
}

std::optional<std::string> utf8FromUtf16(std::string_view bytes) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  bool bigEndFirst = false;
  if (bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE")) {
    bigEndFirst = bytes.front() == '\xFE';
    bytes.remove_prefix(2);
  } else {
    std::ptrdiff_t evenZeros = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      if (bytes[i] == '\0') evenZeros += i % 2 == 0 ? 1 : -1;
    }
    bigEndFirst = evenZeros > 0;
  }
  const auto unit = [&](std::size_t at) {
    return static_cast<char32_t>(byteAt(bytes, at + (bigEndFirst ? 0 : 1)) << 8 |
                                 byteAt(bytes, at + (bigEndFirst ? 1 : 0)));
  };
  std::string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size(); at += 2) {
    char32_t character = unit(at);
    if (character >= 0xDC00 && character <= 0xDFFF) return std::nullopt;
    if (character >= 0xD800 && character <= 0xDBFF) {
      at += 2;
      const char32_t low = at < bytes.size() ? unit(at) : 0;
      if (low < 0xDC00 || low > 0xDFFF) return std::nullopt;
      character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
    }
    appendUtf8(text, character);
  }
  return text;
}

}  // namespace foundation
