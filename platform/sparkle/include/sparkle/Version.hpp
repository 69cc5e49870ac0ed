#pragma once

#include <compare>
#include <string_view>

namespace sparkle {

// Which of two versions is newer, component by component: runs of digits count as numbers of any
// length, so "1.10" is newer than "1.9", and missing numbers count as 0, so "2" equals "2.0".
// Letters mark what comes before the release: "2.0b1" is older than "2.0b2", and both are older
// than "2.0".
std::weak_ordering compareVersions(std::string_view a, std::string_view b);

}  // namespace sparkle
