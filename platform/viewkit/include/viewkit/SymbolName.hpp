// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/SymbolNames.hpp"

#include <string_view>

namespace viewkit {

// The name of a symbol image. It is checked when the program is compiled: a name without a drawing
// is an error there, not an empty space on the screen.
//
//     Image::symbol("lock.fill")  // Image::symbol("lock.full") does not compile
class SymbolName {
public:
  consteval SymbolName(const char* name) : name_(name) {
    for (const std::string_view known : kSymbolNames) {
      if (known == name_) return;
    }
    throw "no such symbol: add it to platform/viewkit/symbols/symbols.txt";
  }

  constexpr std::string_view text() const { return name_; }
  friend constexpr bool operator==(SymbolName, SymbolName) = default;

private:
  std::string_view name_;
};

}  // namespace viewkit
