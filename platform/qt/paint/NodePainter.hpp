// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/Coordinates.hpp"
#include "viewkit/PresentationNode.hpp"

#include <QPainter>
#include <QPainterPath>

#include <functional>
#include <optional>

namespace qt {

// Paints the texts, symbols, pictures and shapes of a branch of the presentation tree. It stops at
// controls, which paint themselves.
class NodePainter {
public:
  // Which nodes to paint.
  using Filter = std::function<bool(const viewkit::PresentationNode&)>;

  // The painter uses the coordinates of the window. Nodes outside of `dirty` are not painted.
  NodePainter(QPainter& painter, const Coordinates& coordinates, QRectF dirty, Filter filter);

  // Paints the children of the node, whose own origin in the window is `origin`.
  void paintChildren(const viewkit::PresentationNode& node, viewkit::Point origin, double opacity);

private:
  // A clip with round corners. QPainter clips without antialiasing, so content that fills the
  // corners is painted with round corners instead of being clipped.
  struct Corners {
    QRectF frame;
    qreal radius = 0;

    QPainterPath outline() const;
    // Whether the corners cut nothing off the rectangle.
    bool leaveWhole(const QRectF& rect) const;
  };

  void paint(const viewkit::PresentationNode& node, viewkit::Point parentOrigin, double opacity);
  void clip(const QRectF& frame, qreal radius);
  // Whether the shape is a plain rectangle that covers the whole clip.
  bool fillsCorners(const viewkit::ShapeVisual& shape, const QRectF& frame) const;
  // Whether the content of the node is painted with the corners of the clip.
  bool isPaintedRound(const viewkit::PresentationNode& node, const QRectF& frame) const;
  void paintContent(const viewkit::PresentationNode& node, const QRectF& frame);
  void draw(const viewkit::TextVisual& text, const QRectF& frame);
  void draw(const viewkit::SymbolVisual& symbol, const QRectF& frame);
  void draw(const viewkit::ImageVisual& image, const QRectF& frame);
  void draw(const viewkit::ShapeVisual& shape, const QRectF& frame);

  // The nearest whole device pixel.
  QPointF snapped(QPointF point) const;
  QRectF snapped(const QRectF& rect) const;

  QPainter& painter_;
  const Coordinates& coordinates_;
  QRectF dirty_;
  Filter filter_;
  qreal devicePixelRatio_;
  std::optional<Corners> corners_;
};

// Device pixels per point.
qreal devicePixelRatioOf(const QPainter& painter);

}  // namespace qt
