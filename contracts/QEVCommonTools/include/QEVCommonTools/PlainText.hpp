// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace QEVCommonTools {

// The text without the white space and line breaks of Unicode at both ends.
std::string_view trimmed(std::string_view text);

// Fills the placeholders of a format. "%@" stands for the next value, "%2$@" for the second value,
// "%%" for a percent sign. A placeholder without a value becomes empty.
//
//     formatted("%@ of %@", {"3", "7"});  // "3 of 7"
std::string formatted(std::string_view format, const std::vector<std::string_view>& values);

}  // namespace QEVCommonTools
