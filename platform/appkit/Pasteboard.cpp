// SPDX-License-Identifier: MIT
#include "appkit/Pasteboard.hpp"

#include <utility>

namespace appkit {

Pasteboard& Pasteboard::general() {
  static Pasteboard pasteboard;
  return pasteboard;
}

void Pasteboard::setString(std::string text) {
  string_ = std::move(text);
  if (write_) write_(string_);
}

}  // namespace appkit
