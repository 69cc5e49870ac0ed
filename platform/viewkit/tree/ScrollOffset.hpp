// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

#include <algorithm>

namespace viewkit {

// The nearest offset at which a viewport shows content alone. Content that is smaller than the
// viewport is not scrolled.
inline Point clampedOffset(Point offset, Size content, Size viewport) {
  return {std::clamp(offset.x, 0.0, std::max(0.0, content.width - viewport.width)),
          std::clamp(offset.y, 0.0, std::max(0.0, content.height - viewport.height))};
}

// The offset nearest to `offset` at which the rectangle of the content is in sight. Of a rectangle
// that is larger than the viewport, the start is shown.
inline Point revealingOffset(Point offset, const Rect& rect, Size viewport) {
  const auto nearest = [](double from, double length, double start, double end) {
    if (start < from || end - start > length) return start;
    return end > from + length ? end - length : from;
  };
  return {nearest(offset.x, viewport.width, rect.origin.x, rect.maxX()),
          nearest(offset.y, viewport.height, rect.origin.y, rect.maxY())};
}

}  // namespace viewkit
