// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace foundation {

// Character classes of ASCII, whatever the locale. A byte of a longer UTF-8 character is in none of
// them.

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// The value of a hexadecimal digit in either case.
constexpr std::optional<unsigned> hexadecimalDigit(char c) {
  if (isDigit(c)) return static_cast<unsigned>(c - '0');
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
  return std::nullopt;
}

// Space, tab, carriage return and line feed: the white space of JSON and of XML.
inline constexpr std::string_view kBlanks = " \t\r\n";

constexpr bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// The text without blanks at both ends.
constexpr std::string_view withoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace foundation
