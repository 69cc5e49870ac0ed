#pragma once

#include "viewkit/Geometry.hpp"

#include <QPointF>
#include <QRect>
#include <QRectF>

namespace qt {

// Where things of the view tree lie in the window: the tree counts from the leading edge, Qt from
// the left one.
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

// The whole pixels that a widget at this place covers: neighbours that touch still do.
inline QRect wholePixels(const QRectF& rect) {
  const int left = qRound(rect.left());
  const int top = qRound(rect.top());
  return {left, top, qRound(rect.right()) - left, qRound(rect.bottom()) - top};
}

}  // namespace qt
