#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace zorvantine {

// The text with everything escaped that would break a line, control a terminal or reorder what it
// shows: control characters, bidirectional overrides, and bytes that are not UTF-8, as in "\n",
// "\t" and "\x1b". Every text that is not the program's own goes through it before it is printed
// for a person.
std::string onOneLine(std::string_view text);

// The same for a text of several lines, which stay lines.
std::string escapedLines(std::string_view text);

// The text if it has at most so many characters, else as many and how much is left out.
std::string shortened(std::string_view text, std::size_t characters);

// A value as a person reads it: text as it is, true or false, numbers in decimal, data in base64, a
// date as in 2026-03-01T12:30:00Z, an array or a dictionary as JSON.
std::string textForm(const QEVSettings::PreferenceValue& value);

// A date in ISO 8601, in UTC, with the fraction of a second when there is one; "never" for a date
// that is none.
std::string textForm(QEVSettings::PreferenceValue::Date date);

}  // namespace zorvantine
