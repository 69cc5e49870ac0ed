// SPDX-License-Identifier: MIT
#include "text/JSONEscape.hpp"

#include "foundation/Ascii.hpp"

#include <unicode/utf16.h>

#include <cstddef>
#include <optional>

namespace foundation {

namespace {

// Takes "\u" and four hexadecimal digits off the front of the text.
std::optional<char32_t> takeCodeUnit(std::string_view& text) {
  constexpr std::size_t length = 6;
  if (!text.starts_with("\\u") || text.size() < length) return std::nullopt;
  char32_t unit = 0;
  for (const char c : text.substr(2, length - 2)) {
    const auto digit = hexadecimalDigit(c);
    if (!digit) return std::nullopt;
    unit = unit * 16 + *digit;
  }
  text.remove_prefix(length);
  return unit;
}

Result<char32_t> takeUnicodeEscape(std::string_view& text) {
  const auto unit = takeCodeUnit(text);
  if (!unit) return Error{"four hexadecimal digits were expected"};
  if (!U_IS_SURROGATE(*unit)) return *unit;
  const auto trail = U16_IS_LEAD(*unit) ? takeCodeUnit(text) : std::nullopt;
  if (!trail || !U16_IS_TRAIL(*trail)) return Error{"half a surrogate pair"};
  return static_cast<char32_t>(U16_GET_SUPPLEMENTARY(*unit, *trail));
}

}  // namespace

Result<char32_t> takeJSONEscape(std::string_view& text) {
  if (text.starts_with("\\u")) return takeUnicodeEscape(text);
  const char letter = text.size() > 1 ? text[1] : '\0';
  constexpr std::string_view letters = R"("\/bfnrt)";
  constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
  const std::size_t found = letters.find(letter);
  if (found == std::string_view::npos) return Error{"no such escape"};
  text.remove_prefix(2);
  return static_cast<char32_t>(meanings[found]);
}

}  // namespace foundation
