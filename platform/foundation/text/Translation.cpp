// SPDX-License-Identifier: MIT
#include "foundation/Translation.hpp"

#include "foundation/Bundle.hpp"

#include <cstddef>

namespace foundation {

std::string translated(std::string_view english, std::initializer_list<std::string_view> values) {
  const std::string pattern = Bundle::mainBundle().localizedString(english);
  std::string text;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const char digit = pattern[at] == '%' && at + 1 < pattern.size() ? pattern[at + 1] : '0';
    const auto place = static_cast<std::size_t>(digit - '1');
    if (digit >= '1' && place < values.size()) {
      text += values.begin()[place];
      ++at;
    } else {
      text += pattern[at];
    }
  }
  return text;
}

}  // namespace foundation
