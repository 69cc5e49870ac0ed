#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace QEVCommonTools {

// The text without white space and line breaks at both ends.
std::string_view trimmed(std::string_view text);

// The format with its places filled: "%@" stands for the next value, "%2$@" for the second one,
// "%%" for a percent sign. A place without a value stays empty.
std::string formatted(std::string_view format, const std::vector<std::string_view>& values);

}  // namespace QEVCommonTools
