// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

#include <vector>

namespace viewkit {

// The rectangles to be painted again, in window coordinates.
class Damage {
public:
  void add(const Rect& rect);
  bool isEmpty() const { return rects_.empty(); }
  std::vector<Rect> take();

private:
  std::vector<Rect> rects_;
};

}  // namespace viewkit
