// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Gesture.hpp"

#include <cstdint>

namespace viewkit {

// Ends the current gesture: later writes belong to another one.
void endGesture();

// Makes the writes in its block those of the current gesture.
class GestureWrite {
public:
  GestureWrite();
  GestureWrite(const GestureWrite&) = delete;
  GestureWrite& operator=(const GestureWrite&) = delete;
  ~GestureWrite();

private:
  std::uint64_t before_;
};

}  // namespace viewkit
