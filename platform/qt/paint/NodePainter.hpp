#pragma once

#include "mirror/Coordinates.hpp"
#include "viewkit/PresentationNode.hpp"

#include <QPainter>
#include <QPainterPath>

#include <functional>
#include <optional>

namespace qt {

// Paints what is not a control: texts, symbols, pictures and shapes of a branch of the presentation
// tree, down to the controls in it, which paint themselves.
class NodePainter {
public:
  // Which nodes to paint.
  using Filter = std::function<bool(const viewkit::PresentationNode&)>;

  // The painter's coordinates are those of the window; `dirty` is the part that is wanted.
  NodePainter(QPainter& painter, const Coordinates& coordinates, QRectF dirty, Filter filter);

  // The branch below the node, whose own place in the window is `origin`.
  void paintChildren(const viewkit::PresentationNode& node, viewkit::Point origin, double opacity);

private:
  // What is inside of round corners. A painter clips without smoothing, so what fills the corners
  // is painted round instead.
  struct Corners {
    QRectF frame;
    qreal radius = 0;

    QPainterPath outline() const;
    // Whether the corners cut nothing off.
    bool leaveWhole(const QRectF& rect) const;
  };

  void paint(const viewkit::PresentationNode& node, viewkit::Point parentOrigin, double opacity);
  void clip(const QRectF& frame, qreal radius);
  // Whether the shape is a plain one over all that is inside of the corners.
  bool fillsCorners(const viewkit::ShapeVisual& shape, const QRectF& frame) const;
  // Whether the node's content is painted with the corners that it has to stay inside of.
  bool isPaintedRound(const viewkit::PresentationNode& node, const QRectF& frame) const;
  void paintContent(const viewkit::PresentationNode& node, const QRectF& frame);
  void draw(const viewkit::TextVisual& text, const QRectF& frame);
  void draw(const viewkit::SymbolVisual& symbol, const QRectF& frame);
  void draw(const viewkit::ImageVisual& image, const QRectF& frame);
  void draw(const viewkit::ShapeVisual& shape, const QRectF& frame);

  // The nearest place that lies on a whole device pixel.
  QPointF snapped(QPointF point) const;
  QRectF snapped(const QRectF& rect) const;

  QPainter& painter_;
  const Coordinates& coordinates_;
  QRectF dirty_;
  Filter filter_;
  qreal devicePixelRatio_;
  std::optional<Corners> corners_;
};

// How many device pixels the painter draws for a logical one.
qreal devicePixelRatioOf(const QPainter& painter);

}  // namespace qt
