// SPDX-License-Identifier: MIT
#include "sparkle/reason.hpp"

#include "foundation/Translation.hpp"

namespace sparkle {

foundation::Error reason(std::string_view key, std::initializer_list<std::string_view> values) {
  return {foundation::translated(key, values)};
}

}  // namespace sparkle
