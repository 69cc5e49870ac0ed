// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/Coordinates.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/ViewHost.hpp"

#include <QPointF>
#include <QRect>
#include <QRectF>

class QPainter;
class QWidget;

namespace qt {

// The presentation tree of a window together with the widgets that show it, as controls and
// assistive technology see it. Mirror implements it. Main thread only.
class MirroredTree {
public:
  // Where a node is shown: the widget that it is painted in or that it is, and the node's rectangle
  // in the coordinates of that widget.
  struct Place {
    const QWidget* widget = nullptr;
    QRectF rect;
  };

  MirroredTree() = default;
  MirroredTree(const MirroredTree&) = delete;
  MirroredTree& operator=(const MirroredTree&) = delete;
  virtual ~MirroredTree() = default;

  virtual viewkit::ViewHost& host() const = 0;
  // The window's own widget.
  virtual QWidget& canvas() const = 0;
  virtual const Coordinates& coordinates() const = 0;

  // Paints the nodes that belong to a surface: the canvas, or the widget of a control that contains
  // views. `dirty` is in the coordinates of the surface; `opacity` multiplies the opacity of the
  // tree.
  virtual void paint(QPainter& painter, const QWidget& surface, const QRect& dirty,
                     double opacity = 1) const = 0;

  // Converts a point of any widget in the window to the coordinates of the tree.
  virtual viewkit::Point treePoint(const QWidget& widget, QPointF point) const = 0;
  // The widget of a control; null for a node that is painted.
  virtual QWidget* widgetOf(viewkit::NodeId id) const = 0;
  virtual Place placeOf(const viewkit::PresentationNode& node) const = 0;
};

}  // namespace qt
