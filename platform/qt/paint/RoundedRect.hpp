#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

namespace qt {

// A rectangle with round corners, and a border inside of its edge.
struct RoundedRect {
  // Of the outer edge, in points.
  qreal radius = 0;
  // Invalid for none.
  QColor fill = {};
  QColor border = {};
  qreal borderWidth = 0;
};

// Paints it smoothly into the frame. Where edges cut through pixels it is a path like any other;
// where they lie between them, as they nearly always do, only corners are blended, from pictures
// that are kept.
void drawRoundedRect(QPainter& painter, const QRectF& frame, const RoundedRect& shape);

}  // namespace qt
