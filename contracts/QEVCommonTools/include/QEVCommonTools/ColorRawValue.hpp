#pragma once

#include "appkit/Color.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace QEVCommonTools {

// A colour that paints nothing: for what is there but not seen.
inline appkit::Color klear() { return appkit::Color::clear(); }

// The text under which the preferences store keeps a colour: the base64 form of its bytes.
//
// The bytes are red, green, blue and opacity in sRGB, from 0 to 1, each an IEEE 754 double, least
// significant byte first: 32 in all. Stores of the first schema hold the same bytes without base64.
std::string rawValue(const appkit::RGBA& color);

// The colour that such a text stands for; nothing when it is no base64, when the length is wrong,
// or when a component lies outside of its range.
std::optional<appkit::RGBA> colorFromRawValue(std::string_view rawValue);

}  // namespace QEVCommonTools
