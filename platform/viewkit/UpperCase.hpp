#pragma once

#include <string>
#include <string_view>

namespace viewkit {

// UTF-8 text in capital letters, by the rules of Unicode and whatever the process's locale is.
std::string upperCased(std::string_view text);

}  // namespace viewkit
