// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

#include <QPointF>
#include <QRect>
#include <QRectF>

namespace qt {

// Converts between the coordinates of the view tree, whose x grows from the leading edge, and those
// of the window's widget, whose x grows from the left edge. Both are in points.
struct Coordinates {
  double windowWidth = 0;
  bool rightToLeft = false;

  QRectF toDevice(const viewkit::Rect& rect) const {
    const double x = rightToLeft ? windowWidth - rect.maxX() : rect.origin.x;
    return {x, rect.origin.y, rect.size.width, rect.size.height};
  }
  viewkit::Point fromDevice(QPointF point) const {
    return {rightToLeft ? windowWidth - point.x() : point.x(), point.y()};
  }
  Qt::LayoutDirection direction() const { return rightToLeft ? Qt::RightToLeft : Qt::LeftToRight; }
};

// The whole points that a widget in this rectangle covers. Rectangles that touch still touch
// afterwards, because each edge is rounded by itself.
inline QRect wholePixels(const QRectF& rect) {
  const int left = qRound(rect.left());
  const int top = qRound(rect.top());
  return {left, top, qRound(rect.right()) - left, qRound(rect.bottom()) - top};
}

}  // namespace qt
