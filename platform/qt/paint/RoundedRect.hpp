// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace qt {

// A rectangle with round corners and a border inside its edge. Lengths are points.
struct RoundedRect {
  // Of the outer edge.
  qreal radius = 0;
  // Whether the curvature of the corners grows and shrinks gradually, instead of being that of a
  // circle.
  bool isContinuous = false;
  // Invalid for none.
  QColor fill = {};
  QColor border = {};
  qreal borderWidth = 0;
};

// Paints the shape into the frame, antialiased. Frames that lie on whole device pixels, which are
// nearly all, are fast: straight parts are filled and the corners come from a cache.
void drawRoundedRect(QPainter& painter, const QRectF& frame, const RoundedRect& shape);

}  // namespace qt
