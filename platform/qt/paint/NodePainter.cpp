// SPDX-License-Identifier: MIT
#include "paint/NodePainter.hpp"

#include "paint/Colors.hpp"
#include "paint/Look.hpp"
#include "paint/Pictures.hpp"
#include "paint/RoundedRect.hpp"
#include "paint/Symbols.hpp"
#include "paint/TextLines.hpp"

#include <cmath>
#include <numbers>
#include <utility>
#include <variant>

namespace qt {

qreal devicePixelRatioOf(const QPainter& painter) { return painter.deviceTransform().m11(); }

NodePainter::NodePainter(QPainter& painter, const Coordinates& coordinates, QRectF dirty,
                         Filter filter)
    : painter_(painter),
      coordinates_(coordinates),
      dirty_(dirty.adjusted(-look::kOverhang, -look::kOverhang, look::kOverhang, look::kOverhang)),
      filter_(std::move(filter)),
      devicePixelRatio_(devicePixelRatioOf(painter)) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void NodePainter::paintChildren(const viewkit::PresentationNode& node, viewkit::Point origin,
                                double opacity) {
  for (const viewkit::PresentationNode* child : node.children) paint(*child, origin, opacity);
}

void NodePainter::paint(const viewkit::PresentationNode& node, viewkit::Point parentOrigin,
                        double opacity) {
  opacity *= node.opacity;
  if (node.control() || opacity <= 0) return;
  const viewkit::Rect inWindow = node.frame.movedBy(parentOrigin);
  const QRectF frame = coordinates_.toDevice(inWindow);
  const bool isVisible = frame.intersects(dirty_);
  const std::optional<Corners> outer = corners_;
  if (node.clipRadius) {
    if (!isVisible) return;
    painter_.save();
    clip(snapped(frame), *node.clipRadius);
  }
  if (isVisible && filter_(node)) {
    painter_.setOpacity(opacity);
    paintContent(node, frame);
  }
  paintChildren(node, inWindow.origin, opacity);
  if (node.clipRadius) painter_.restore();
  corners_ = outer;
}

void NodePainter::clip(const QRectF& frame, qreal radius) {
  painter_.setClipRect(frame, Qt::IntersectClip);
  if (radius <= 0) return;
  if (corners_) painter_.setClipPath(corners_->outline(), Qt::IntersectClip);
  corners_ = {frame, radius};
}

QPainterPath NodePainter::Corners::outline() const {
  QPainterPath path;
  path.addRoundedRect(frame, radius, radius);
  return path;
}

bool NodePainter::Corners::leaveWhole(const QRectF& rect) const {
  // How far the arc of a corner reaches inwards.
  const qreal depth = radius * (1 - std::numbers::sqrt2 / 2);
  return frame.adjusted(depth, depth, -depth, -depth).contains(rect);
}

bool NodePainter::fillsCorners(const viewkit::ShapeVisual& shape, const QRectF& frame) const {
  return corners_ && shape.cornerRadius <= 0 && shape.borderWidth <= 0 &&
         snapped(frame).contains(corners_->frame);
}

bool NodePainter::isPaintedRound(const viewkit::PresentationNode& node, const QRectF& frame) const {
  const auto* shape = std::get_if<viewkit::ShapeVisual>(&node.content);
  if (shape) return fillsCorners(*shape, frame);
  return std::holds_alternative<viewkit::ImageVisual>(node.content);
}

void NodePainter::paintContent(const viewkit::PresentationNode& node, const QRectF& frame) {
  const bool isCut = corners_ && !corners_->leaveWhole(frame) && !isPaintedRound(node, frame);
  if (isCut) {
    painter_.save();
    painter_.setClipPath(corners_->outline(), Qt::IntersectClip);
  }
  std::visit(
      [&](const auto& visual) {
        if constexpr (requires { draw(visual, frame); }) draw(visual, frame);
      },
      node.content);
  if (isCut) painter_.restore();
}

void NodePainter::draw(const viewkit::TextVisual& text, const QRectF& frame) {
  painter_.setPen(colorOf(text.color));
  TextLines::of(text, frame.width(), frame.height(), coordinates_.direction())
      ->draw(painter_, snapped(frame.topLeft()), frame.width());
}

void NodePainter::draw(const viewkit::SymbolVisual& symbol, const QRectF& frame) {
  const QPixmap pixmap =
      symbolPixmap(symbol.name.text(), frame.size(), colorOf(symbol.color), devicePixelRatio_);
  painter_.drawPixmap(snapped(frame.topLeft()), pixmap);
}

void NodePainter::draw(const viewkit::ImageVisual& image, const QRectF& frame) {
  const QRectF target = snapped(frame);
  const QPixmap picture = picturePixmap(image, target.size(), devicePixelRatio_);
  if (!corners_ || corners_->leaveWhole(target)) {
    painter_.drawPixmap(target.topLeft(), picture);
  } else if (!picture.isNull()) {
    QImage pixels = picture.toImage();
    pixels.setDevicePixelRatio(1);
    QBrush brush(pixels);
    brush.setTransform(QTransform::fromTranslate(target.left(), target.top())
                           .scale(1 / devicePixelRatio_, 1 / devicePixelRatio_));
    QPainterPath whole;
    whole.addRect(target);
    painter_.fillPath(whole.intersected(corners_->outline()), brush);
  }
}

void NodePainter::draw(const viewkit::ShapeVisual& shape, const QRectF& frame) {
  const auto paint = [](const appkit::Color& color) {
    return color.isClear() ? QColor() : colorOf(color);
  };
  if (fillsCorners(shape, frame)) {
    drawRoundedRect(painter_, corners_->frame,
                    {.radius = corners_->radius, .fill = paint(shape.fill)});
    return;
  }
  drawRoundedRect(painter_, snapped(frame),
                  {.radius = shape.cornerRadius,
                   .isContinuous = shape.cornerStyle == viewkit::CornerStyle::continuous,
                   .fill = paint(shape.fill),
                   .border = paint(shape.border),
                   .borderWidth = shape.borderWidth});
}

QPointF NodePainter::snapped(QPointF point) const {
  const auto snap = [this](double v) {
    return std::round(v * devicePixelRatio_) / devicePixelRatio_;
  };
  return {snap(point.x()), snap(point.y())};
}

QRectF NodePainter::snapped(const QRectF& rect) const {
  return {snapped(rect.topLeft()), snapped(rect.bottomRight())};
}

}  // namespace qt
