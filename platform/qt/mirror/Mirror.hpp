// SPDX-License-Identifier: MIT
#pragma once

#include "bridge/MirroredTree.hpp"

#include <QPainter>
#include <QPointer>
#include <QRegion>
#include <QWidget>

#include <cstddef>
#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace qt {

class ControlWidget;

// Keeps the widgets of a window equal to its presentation tree. There is one widget for each
// control; widgets are stacked and reached by the Tab key in the order of the tree. All other nodes
// are painted by the widget that contains them: the canvas, or the widget of a control that
// contains views. Main thread only.
class Mirror final : public MirroredTree {
public:
  // Makes the widget of a control as a child of `parent`, which owns it.
  using ControlFactory = std::function<ControlWidget*(
      MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent)>;

  // `canvas` is the window's own widget. It and the host outlive the mirror.
  Mirror(QWidget& canvas, viewkit::ViewHost& host, ControlFactory makeControl);
  ~Mirror() override;

  viewkit::ViewHost& host() const override { return host_; }
  QWidget& canvas() const override { return canvas_; }
  const Coordinates& coordinates() const override { return coordinates_; }
  void paint(QPainter& painter, const QWidget& surface, const QRect& dirty,
             double opacity = 1) const override;
  viewkit::Point treePoint(const QWidget& widget, QPointF point) const override;
  QWidget* widgetOf(viewkit::NodeId id) const override;
  Place placeOf(const viewkit::PresentationNode& node) const override;

  // Applies the changes of one update to the widgets.
  void show(const viewkit::PresentationChanges& changes);

  // The control whose widget is `widget` or contains it; null when there is none.
  ControlWidget* controlAround(const QWidget* widget) const;

private:
  // A widget that nodes are painted in.
  struct Surface {
    QWidget* widget = nullptr;
    const viewkit::PresentationNode* node = nullptr;
    // The origin of the widget in the window, and the origin of its node in the tree.
    QPoint origin;
    viewkit::Point nodeOrigin;
    double opacity = 1;
    // Painted nodes that overlap a control before them. The overlay, a widget above the controls,
    // paints them.
    std::unordered_set<viewkit::NodeId> above;
    QPointer<QWidget> overlay;
    std::vector<ControlWidget*> controls;
  };
  class Overlay;
  // The properties of a node that decide where widgets lie and which widget paints the node.
  struct Arrangement {
    viewkit::Rect frame;
    std::optional<double> clipRadius;
    double opacity = 1;
    std::pair<std::size_t, std::size_t> kind;
    std::vector<const viewkit::PresentationNode*> children;

    friend bool operator==(const Arrangement&, const Arrangement&) = default;
  };
  // State of a walk over the nodes of one surface: the controls met so far and their area.
  struct Walk {
    Surface& surface;
    std::vector<ControlWidget*> controls;
    QRegion covered;
  };

  // Records the arrangement of the changed nodes. Returns whether any arrangement changed.
  bool noteArrangement(const viewkit::PresentationChanges& changes);
  // Gives every widget its geometry, parent, stacking and Tab order.
  void arrange();
  void mirror(const viewkit::PresentationNode& node, viewkit::Point parentOrigin, double opacity,
              QRect clip, Walk& walk);
  void mirrorControl(const viewkit::PresentationNode& node, const QRectF& frame, double opacity,
                     const QRect& clip, Walk& walk);
  void mirrorInside(const viewkit::PresentationNode& node, const QRectF& frame, double opacity,
                    ControlWidget& control);
  // Stacks the controls of the surface in the order of the walk.
  void finish(Walk& walk);
  // Makes the overlay of the surface, or deletes it when nothing visible overlaps a control.
  void updateOverlay(Surface& surface);
  ControlWidget* controlOf(viewkit::NodeId id) const;
  ControlWidget& controlFor(const viewkit::PresentationNode& node, QWidget& parent);
  // A spare widget that can show the node; null when there is none.
  ControlWidget* takeSpare(const viewkit::PresentationNode& node, const QWidget& parent);
  void setAside(const std::vector<viewkit::NodeId>& removed);
  void discard(ControlWidget& control);
  void paintSurface(QPainter& painter, const Surface& surface, const QRect& dirty, double opacity,
                    bool above) const;
  void clipToAncestors(QPainter& painter, const Surface& surface) const;
  const Surface& surfaceAround(const QWidget& widget) const;
  void damage(const viewkit::Rect& rect);

  QWidget& canvas_;
  viewkit::ViewHost& host_;
  ControlFactory makeControl_;
  Coordinates coordinates_;
  std::unordered_map<viewkit::NodeId, ControlWidget*> controls_;
  // The controls of nodes that were removed in this update, kept for the nodes that were added in
  // it: making and showing a widget costs many times as much as changing one.
  std::vector<ControlWidget*> spares_;
  std::unordered_map<const QWidget*, Surface> surfaces_;
  std::unordered_set<viewkit::NodeId> changed_;
  std::unordered_map<viewkit::NodeId, Arrangement> arrangements_;
  std::vector<QWidget*> tabOrder_;
  std::vector<QWidget*> nextTabOrder_;
};

}  // namespace qt
