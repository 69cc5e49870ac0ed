// SPDX-License-Identifier: MIT
#include "support/Diagnostics.hpp"

#include <cstdio>
#include <set>

namespace viewkit {

void reportMistake(const std::string& message) {
  static std::set<std::string> reported;
  if (reported.insert(message).second) std::fprintf(stderr, "viewkit: %s\n", message.c_str());
}

}  // namespace viewkit
