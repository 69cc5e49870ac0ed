// SPDX-License-Identifier: MIT
#include "passes/Damage.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace viewkit {

namespace {

// Beyond this number a rectangle is not compared with the others: the time would grow with the
// square of their number.
constexpr std::size_t kMostCompared = 32;

bool covers(const Rect& outer, const Rect& inner) {
  return inner.origin.x >= outer.origin.x && inner.origin.y >= outer.origin.y &&
         inner.maxX() <= outer.maxX() && inner.maxY() <= outer.maxY();
}

}  // namespace

void Damage::add(const Rect& rect) {
  if (rect.isEmpty()) return;
  if (rects_.size() < kMostCompared) {
    if (std::any_of(rects_.begin(), rects_.end(),
                    [&](const Rect& each) { return covers(each, rect); }))
      return;
    std::erase_if(rects_, [&](const Rect& each) { return covers(rect, each); });
  }
  rects_.push_back(rect);
}

std::vector<Rect> Damage::take() { return std::exchange(rects_, {}); }

}  // namespace viewkit
