// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// Converts between values and the text between the tags of an XML property list. Blanks around a
// value are ignored. Nothing for a text that is malformed or does not fit the type.

// Decimal or, after "0x", hexadecimal, with a sign or without.
std::optional<std::int64_t> integerOfText(std::string_view text);
// Decimal with or without an exponent, "inf" or "nan"; never rounded to zero or to an infinity.
std::optional<double> realOfText(std::string_view text);
// "2019-05-17T08:30:12Z"; the seconds may have a fraction.
std::optional<QEVSettings::PreferenceValue::Date> dateOfText(std::string_view text);
// Base64 with padding, blanks anywhere.
std::optional<QEVSettings::PreferenceValue::Bytes> dataOfText(std::string_view text);

std::string textOfReal(double real);
// Drops the fraction of a second. Nothing for a year without four digits.
std::optional<std::string> textOfDate(QEVSettings::PreferenceValue::Date date);

}  // namespace foundation
