// SPDX-License-Identifier: MIT
#include "controls/GestureWrite.hpp"

#include <utility>

namespace viewkit {

namespace {

struct Gestures {
  std::uint64_t current = 1;
  std::uint64_t running = 0;
};

Gestures& gestures() {
  static Gestures all;
  return all;
}

}  // namespace

std::uint64_t runningGesture() { return gestures().running; }

void endGesture() { ++gestures().current; }

GestureWrite::GestureWrite() : before_(std::exchange(gestures().running, gestures().current)) {}

GestureWrite::~GestureWrite() { gestures().running = before_; }

}  // namespace viewkit
