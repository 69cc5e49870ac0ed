// SPDX-License-Identifier: MIT
#include "paint/RoundedRect.hpp"

#include "paint/Cache.hpp"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <algorithm>
#include <cmath>

namespace qt {

namespace {

// A continuous corner begins this many radii before the edges meet, and its middle lies where that
// of a circular corner does.
constexpr qreal kContinuousExtent = 1.4;
constexpr qreal kContinuousPull = 0.7754;

struct Key {
  qreal radius;
  bool isContinuous;
  qreal borderWidth;
  QRgb fill;
  QRgb border;
  qreal devicePixelRatio;

  friend bool operator==(const Key&, const Key&) = default;
  friend std::size_t qHash(const Key& key, std::size_t seed = 0) {
    return qHashMulti(seed, key.radius, key.isContinuous, key.borderWidth, key.fill, key.border,
                      key.devicePixelRatio);
  }
};

QRgb rgbaOf(const QColor& color) { return color.isValid() ? color.rgba() : 0; }

bool hasBorder(const RoundedRect& shape) { return shape.border.isValid() && shape.borderWidth > 0; }

// Whether the border is opaque. The fill then ends below the border: it would show at its
// antialiased edge.
bool hidesFill(const RoundedRect& shape) { return hasBorder(shape) && shape.border.alpha() == 255; }

QPainterPath continuousPath(const QRectF& frame, qreal radius) {
  const qreal extent =
      std::min({radius * kContinuousExtent, frame.width() / 2, frame.height() / 2});
  const qreal rest = extent * (1 - kContinuousPull);
  const qreal left = frame.left();
  const qreal top = frame.top();
  const qreal right = frame.right();
  const qreal bottom = frame.bottom();
  QPainterPath path(QPointF(left + extent, top));
  path.lineTo(right - extent, top);
  path.cubicTo(right - rest, top, right, top + rest, right, top + extent);
  path.lineTo(right, bottom - extent);
  path.cubicTo(right, bottom - rest, right - rest, bottom, right - extent, bottom);
  path.lineTo(left + extent, bottom);
  path.cubicTo(left + rest, bottom, left, bottom - rest, left, bottom - extent);
  path.lineTo(left, top + extent);
  path.cubicTo(left, top + rest, left + rest, top, left + extent, top);
  return path;
}

void drawAsPath(QPainter& painter, const QRectF& frame, const RoundedRect& shape) {
  painter.setRenderHint(QPainter::Antialiasing);
  const qreal middle = shape.borderWidth / 2;
  const auto draw = [&](qreal inset) {
    const qreal radius = std::max(0.0, shape.radius - inset);
    const QRectF outline = frame.adjusted(inset, inset, -inset, -inset);
    if (shape.isContinuous) {
      painter.drawPath(continuousPath(outline, radius));
    } else {
      painter.drawRoundedRect(outline, radius, radius);
    }
  };
  if (shape.fill.isValid()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(shape.fill);
    draw(hidesFill(shape) ? middle : 0);
  }
  if (hasBorder(shape)) {
    painter.setPen(
        QPen(shape.border, shape.borderWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    draw(middle);
  }
}

// The four corners as one square pixmap.
QPixmap cornersOf(const RoundedRect& shape, int corner, qreal devicePixelRatio) {
  const Key key{shape.radius,       shape.isContinuous,   shape.borderWidth,
                rgbaOf(shape.fill), rgbaOf(shape.border), devicePixelRatio};
  return cached<QPixmap, 256>(key, [&] {
    const QSize size(2 * corner, 2 * corner);
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawAsPath(painter, QRectF(QPointF(), size), shape);
    painter.end();
    return pixmap;
  });
}

bool isWhole(qreal number) { return std::abs(number - std::round(number)) < 1e-6; }

// Whether every edge lies on the boundary of device pixels.
bool isOnPixels(const QPainter& painter, const QRectF& frame, qreal borderWidth) {
  const QTransform& transform = painter.deviceTransform();
  if (transform.type() > QTransform::TxScale || transform.m11() != transform.m22()) return false;
  const QRectF device = transform.mapRect(frame);
  return isWhole(transform.m11()) && isWhole(borderWidth * transform.m11()) &&
         isWhole(device.left()) && isWhole(device.top()) && isWhole(device.right()) &&
         isWhole(device.bottom());
}

void drawCorners(QPainter& painter, const QRectF& frame, const QPixmap& corners, int corner) {
  const qreal side = corner * corners.devicePixelRatio();
  const qreal right = frame.right() - corner;
  const qreal bottom = frame.bottom() - corner;
  painter.drawPixmap(frame.topLeft(), corners, QRectF(0, 0, side, side));
  painter.drawPixmap(QPointF(right, frame.top()), corners, QRectF(side, 0, side, side));
  painter.drawPixmap(QPointF(frame.left(), bottom), corners, QRectF(0, side, side, side));
  painter.drawPixmap(QPointF(right, bottom), corners, QRectF(side, side, side, side));
}

// Fills in bands: Qt shares the blending of more rows among threads, and waking those takes longer
// than the blending.
void fillBlended(QPainter& painter, QRectF rect, const QColor& color) {
  constexpr qreal rows = 64;
  const qreal step = color.alpha() == 255 ? rect.height() : rows / painter.deviceTransform().m22();
  for (const qreal bottom = rect.bottom(); rect.top() < bottom; rect.moveTop(rect.top() + step)) {
    rect.setHeight(std::min(step, bottom - rect.top()));
    painter.fillRect(rect, color);
  }
}

// The parts between the corners: three filled rectangles and four border lines.
void drawBetweenCorners(QPainter& painter, const QRectF& frame, const RoundedRect& shape,
                        int corner) {
  const qreal width = frame.width() - 2 * corner;
  const qreal height = frame.height() - 2 * corner;
  if (shape.fill.isValid()) {
    const qreal inset = hidesFill(shape) ? shape.borderWidth : 0;
    const qreal bandHeight = corner - inset;
    painter.fillRect(QRectF(frame.left() + corner, frame.top() + inset, width, bandHeight),
                     shape.fill);
    fillBlended(
        painter,
        QRectF(frame.left() + inset, frame.top() + corner, frame.width() - 2 * inset, height),
        shape.fill);
    painter.fillRect(QRectF(frame.left() + corner, frame.bottom() - corner, width, bandHeight),
                     shape.fill);
  }
  if (hasBorder(shape)) {
    const qreal line = shape.borderWidth;
    painter.fillRect(QRectF(frame.left() + corner, frame.top(), width, line), shape.border);
    painter.fillRect(QRectF(frame.left() + corner, frame.bottom() - line, width, line),
                     shape.border);
    painter.fillRect(QRectF(frame.left(), frame.top() + corner, line, height), shape.border);
    painter.fillRect(QRectF(frame.right() - line, frame.top() + corner, line, height),
                     shape.border);
  }
}

}  // namespace

void drawRoundedRect(QPainter& painter, const QRectF& frame, const RoundedRect& shape) {
  const qreal extent = shape.isContinuous ? shape.radius * kContinuousExtent : shape.radius;
  const int corner = static_cast<int>(std::ceil(std::max(extent, shape.borderWidth)));
  const bool hasRoom = frame.width() >= 2 * corner && frame.height() >= 2 * corner;
  painter.save();
  if (hasRoom && isOnPixels(painter, frame, shape.borderWidth)) {
    painter.setRenderHint(QPainter::Antialiasing, false);
    drawBetweenCorners(painter, frame, shape, corner);
    if (corner > 0) {
      drawCorners(painter, frame, cornersOf(shape, corner, painter.deviceTransform().m11()),
                  corner);
    }
  } else {
    drawAsPath(painter, frame, shape);
  }
  painter.restore();
}

}  // namespace qt
