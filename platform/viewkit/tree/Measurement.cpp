// SPDX-License-Identifier: MIT
#include "tree/Measurement.hpp"

#include <cmath>

namespace viewkit {

Point aligned(Size inner, Size outer, Alignment alignment) {
  Point point;
  const double spareWidth = outer.width - inner.width;
  const double spareHeight = outer.height - inner.height;
  switch (alignment.horizontal) {
    case HorizontalAlignment::leading: break;
    // Whole points keep lines and letters sharp.
    case HorizontalAlignment::center: point.x = std::floor(spareWidth / 2); break;
    case HorizontalAlignment::trailing: point.x = spareWidth; break;
  }
  switch (alignment.vertical) {
    case VerticalAlignment::top:
    case VerticalAlignment::firstTextBaseline: break;
    case VerticalAlignment::center: point.y = std::floor(spareHeight / 2); break;
    case VerticalAlignment::bottom: point.y = spareHeight; break;
  }
  return point;
}

}  // namespace viewkit
