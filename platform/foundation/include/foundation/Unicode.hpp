#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// The length in bytes of the character that the text begins with, by strict UTF-8: 1 to 4, and 0 when
// no well-formed character stands there (overlong forms, surrogates and the empty text among those).
std::size_t utf8CharacterLength(std::string_view text);

bool isValidUtf8(std::string_view text);

// The text with every byte that belongs to no well-formed character replaced by U+FFFD.
std::string repairedUtf8(std::string_view text);

// Appends a Unicode scalar value as UTF-8; a surrogate or a value above U+10FFFF as U+FFFD.
void appendUtf8(std::string& text, char32_t character);

// The text in capitals by the rules of Unicode, whatever the locale, and the sharp s
// becomes SS. What is no well-formed UTF-8 stays as it is.
std::string uppercased(std::string_view text);

// The text that UTF-16 bytes stand for, as UTF-8. A byte-order mark says the order and is left out; without
// one the order is that in which more characters are below U+0100, and the little end comes first when that
// tells nothing. Nothing when a byte is left over or a surrogate stands alone.
std::optional<std::string> utf8FromUtf16(std::string_view bytes);

}  // namespace foundation
