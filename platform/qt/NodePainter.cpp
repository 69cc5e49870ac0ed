#include "NodePainter.hpp"

#include "Colors.hpp"
#include "Pictures.hpp"
#include "Symbols.hpp"
#include "TextLines.hpp"

#include <QPainterPath>

#include <cmath>
#include <utility>
#include <variant>

namespace qt {

namespace {

// Letters and lines may hang over their frame by this much.
constexpr double kOverhang = 2;

}  // namespace

qreal devicePixelRatioOf(const QPainter& painter) { return painter.deviceTransform().m11(); }

NodePainter::NodePainter(QPainter& painter, const Coordinates& coordinates, QRectF dirty, Filter filter)
    : painter_(painter),
      coordinates_(coordinates),
      dirty_(dirty.adjusted(-kOverhang, -kOverhang, kOverhang, kOverhang)),
      filter_(std::move(filter)),
      devicePixelRatio_(devicePixelRatioOf(painter)) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
}

void NodePainter::paintChildren(const viewkit::PresentationNode& node, viewkit::Point origin, double opacity) {
  for (const viewkit::PresentationNode* child : node.children) paint(*child, origin, opacity);
}

void NodePainter::paint(const viewkit::PresentationNode& node, viewkit::Point parentOrigin, double opacity) {
  opacity *= node.opacity;
  if (node.control() || opacity <= 0) return;
  const viewkit::Rect inWindow = node.frame.movedBy(parentOrigin);
  const QRectF frame = coordinates_.toDevice(inWindow);
  const bool isVisible = frame.intersects(dirty_);
  if (node.clipRadius) {
    if (!isVisible) return;
    painter_.save();
    QPainterPath outline;
    outline.addRoundedRect(snapped(frame), *node.clipRadius, *node.clipRadius);
    painter_.setClipPath(outline, Qt::IntersectClip);
  }
  if (isVisible && filter_(node)) {
    painter_.setOpacity(opacity);
    paintContent(node, frame);
  }
  paintChildren(node, inWindow.origin, opacity);
  if (node.clipRadius) painter_.restore();
}

void NodePainter::paintContent(const viewkit::PresentationNode& node, const QRectF& frame) {
  std::visit(
      [&](const auto& visual) {
        if constexpr (requires { draw(visual, frame); }) draw(visual, frame);
      },
      node.content);
}

void NodePainter::draw(const viewkit::TextVisual& text, const QRectF& frame) {
  painter_.setPen(colorOf(text.color));
  TextLines::of(text, frame.width(), frame.height(), coordinates_.direction())
      ->draw(painter_, snapped(frame.topLeft()), frame.width());
}

void NodePainter::draw(const viewkit::SymbolVisual& symbol, const QRectF& frame) {
  const QPixmap pixmap = symbolPixmap(symbol.name.text(), frame.size(), colorOf(symbol.color), devicePixelRatio_);
  painter_.drawPixmap(snapped(frame.topLeft()), pixmap);
}

void NodePainter::draw(const viewkit::ImageVisual& image, const QRectF& frame) {
  const QRectF target = snapped(frame);
  painter_.drawPixmap(target.topLeft(), picturePixmap(image, target.size(), devicePixelRatio_));
}

void NodePainter::draw(const viewkit::ShapeVisual& shape, const QRectF& frame) {
  const QRectF outline = snapped(frame);
  if (!shape.fill.isClear()) {
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(colorOf(shape.fill));
    painter_.drawRoundedRect(outline, shape.cornerRadius, shape.cornerRadius);
  }
  if (shape.borderWidth > 0 && !shape.border.isClear()) {
    const qreal inset = shape.borderWidth / 2;
    const qreal radius = std::max(0.0, shape.cornerRadius - inset);
    painter_.setPen(QPen(colorOf(shape.border), shape.borderWidth, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter_.setBrush(Qt::NoBrush);
    painter_.drawRoundedRect(outline.adjusted(inset, inset, -inset, -inset), radius, radius);
  }
}

QPointF NodePainter::snapped(QPointF point) const {
  const auto snap = [this](double v) { return std::round(v * devicePixelRatio_) / devicePixelRatio_; };
  return {snap(point.x()), snap(point.y())};
}

QRectF NodePainter::snapped(const QRectF& rect) const { return {snapped(rect.topLeft()), snapped(rect.bottomRight())}; }

}  // namespace qt
