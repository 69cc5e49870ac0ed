// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace zorvantine {

// Escapes what would break a line, control a terminal or reorder the text on it: control
// characters, bidirectional overrides, and bytes that are not UTF-8, as in "\n", "\t" and "\x1b".
// Every text that does not come from the program passes through it before the user sees it.
std::string onOneLine(std::string_view text);

// The same for a text of several lines, whose line feeds stay.
std::string escapedLines(std::string_view text);

// The first characters of a text. A text that is cut ends with the number of bytes left out.
std::string shortened(std::string_view text, std::size_t characters);

// A value as text: text unchanged, true or false, numbers in decimal, data in base64, a date as in
// 2026-03-01T12:30:00Z, an array or a dictionary as JSON.
std::string textForm(const QEVSettings::PreferenceValue& value);

// A date in ISO 8601, in UTC, with the fraction of a second when there is one. A date outside the
// years 0 to 9999 is given in seconds, as in "1e+20 seconds since 1970".
std::string textForm(QEVSettings::PreferenceValue::Date date);

}  // namespace zorvantine
