// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <string_view>

namespace sparkle {

// Compares two versions component by component. Runs of digits are numbers of any length, so "1.10"
// is newer than "1.9". Missing numbers are 0, so "2" equals "2.0". Letters mark a pre-release:
// "2.0b1" is older than "2.0b2", and both are older than "2.0".
std::weak_ordering compareVersions(std::string_view a, std::string_view b);

}  // namespace sparkle
