// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// Stands for what cannot be decoded.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// A character that was decoded, and how long it is.
//
//     while (const std::optional<Utf8Character> first = firstCharacter(text)) {
//       use(first->codePoint);
//       text.remove_prefix(first->length);
//     }
struct Utf8Character {
  char32_t codePoint;
  std::size_t length;  // in bytes, 1 to 4
};

// The character that the text begins with, by strict UTF-8. Nothing when the text is empty or
// begins with no well-formed character; overlong forms and surrogates are not well formed.
std::optional<Utf8Character> firstCharacter(std::string_view text);

// The length in bytes of that character, 0 when there is none.
std::size_t utf8CharacterLength(std::string_view text);

bool isValidUtf8(std::string_view text);

// The text with each byte that belongs to no well-formed character replaced by U+FFFD.
std::string repairedUtf8(std::string_view text);

// Appends a code point as UTF-8. Surrogates and values above U+10FFFF are appended as U+FFFD.
void appendUtf8(std::string& text, char32_t codePoint);

// The text in upper case by Unicode's full mapping for every language: "ß" becomes "SS". Bytes that
// are not well-formed UTF-8 stay as they are.
std::string uppercased(std::string_view text);

// The form in which texts are compared by a search, the same for every language: small letters
// without accents, wide and narrow forms alike. "Größe" and "GRÖSSE" become "grosse".
std::string searchForm(std::string_view text);

// Converts UTF-16 to UTF-8. A byte-order mark decides the byte order and is left out of the result.
// Without a mark, the order is the one in which more characters are below U+0100; little-endian
// when both have as many. Nothing when the number of bytes is odd or a surrogate has no partner.
std::optional<std::string> utf8FromUtf16(std::string_view bytes);

}  // namespace foundation
