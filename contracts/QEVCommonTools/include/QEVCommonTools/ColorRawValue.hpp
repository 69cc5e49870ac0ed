// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace QEVCommonTools {

// The fully transparent colour.
inline appkit::Color klear() { return appkit::Color::clear(); }

// The stored form of a colour: base64 text of 32 bytes. The bytes are red, green, blue and opacity
// in sRGB, each from 0 to 1 as an IEEE 754 double, least significant byte first. Stores of schema 0
// hold the same bytes without base64.
//
//     store.setObject(rawValue(color), spec.colorKey);
std::string rawValue(const appkit::RGBA& color);

// The colour of a stored text. Nothing when the text is not base64, has another length, or holds a
// component outside 0 to 1.
std::optional<appkit::RGBA> colorFromRawValue(std::string_view rawValue);

}  // namespace QEVCommonTools
