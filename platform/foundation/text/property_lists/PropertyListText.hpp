#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// The text between the tags of an XML property list, and what it stands for. Blanks around a value
// do not count. Nothing for a text that is no such value, or that the type cannot hold.

// Decimal or, after "0x", hexadecimal, with a sign or without.
std::optional<std::int64_t> integerOfText(std::string_view text);
// Decimal with or without an exponent, "inf" or "nan"; never rounded to zero or to an infinity.
std::optional<double> realOfText(std::string_view text);
// "2019-05-17T08:30:12Z"; the seconds may have a fraction.
std::optional<QEVSettings::PreferenceValue::Date> dateOfText(std::string_view text);
// Base64 with padding, blanks anywhere.
std::optional<QEVSettings::PreferenceValue::Bytes> dataOfText(std::string_view text);

std::string textOfReal(double real);
// Without its fraction of a second. Nothing for a year that has no four digits.
std::optional<std::string> textOfDate(QEVSettings::PreferenceValue::Date date);

}  // namespace foundation
