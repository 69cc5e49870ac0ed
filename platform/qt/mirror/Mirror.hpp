#pragma once

#include "accessibility/AccessibleTree.hpp"
#include "mirror/Coordinates.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/ViewHost.hpp"

#include <QPainter>
#include <QPointer>
#include <QRegion>
#include <QWidget>

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace qt {

class ControlWidget;

// Keeps the widgets of a window equal to its presentation tree: one widget for each control,
// stacked and reached by the Tab key in the order of the tree; everything else is painted by the
// widget that it stands in, the window's own or that of a control that holds other views.
class Mirror {
public:
  // `canvas` is the window's own widget. It and the host outlive the mirror.
  Mirror(QWidget& canvas, viewkit::ViewHost& host);
  ~Mirror();
  Mirror(const Mirror&) = delete;
  Mirror& operator=(const Mirror&) = delete;

  viewkit::ViewHost& host() const { return host_; }
  QWidget& canvas() const { return canvas_; }
  const Coordinates& coordinates() const { return coordinates_; }
  AccessibleTree& accessibles() { return accessibles_; }

  void show(const viewkit::PresentationChanges& changes);

  // Paints what belongs to this widget: the window's, or that of a control that holds other views.
  // `opacity` is on top of the tree's own.
  void paint(QPainter& painter, const QWidget& surface, const QRect& dirty,
             double opacity = 1) const;

  // Where a point of any widget in the window lies in the tree.
  viewkit::Point treePoint(const QWidget& widget, QPointF point) const;
  // The control that the widget is or is a part of.
  ControlWidget* controlAround(const QWidget* widget) const;
  ControlWidget* controlOf(viewkit::NodeId id) const;
  // Where the node is seen, in the coordinates of the widget that it is painted in or is.
  struct Place {
    const QWidget* widget = nullptr;
    QRectF rect;
  };
  Place placeOf(const viewkit::PresentationNode& node) const;

private:
  // A widget that nodes are painted in.
  struct Surface {
    QWidget* widget = nullptr;
    const viewkit::PresentationNode* node = nullptr;
    // Where the widget's own corner lies in the window, and its node in the tree.
    QPoint origin;
    viewkit::Point nodeOrigin;
    double opacity = 1;
    // Painted nodes that lie over a control before them, and the widget above that shows them.
    std::unordered_set<viewkit::NodeId> above;
    QPointer<QWidget> overlay;
    std::vector<ControlWidget*> controls;
  };
  class Overlay;
  // What of a node decides where widgets stand, and which paints what.
  struct Arrangement {
    viewkit::Rect frame;
    std::optional<double> clipRadius;
    double opacity = 1;
    std::pair<std::size_t, std::size_t> kind;
    std::vector<const viewkit::PresentationNode*> children;

    friend bool operator==(const Arrangement&, const Arrangement&) = default;
  };
  // What one walk over the tree has come to know about the surface it is in.
  struct Walk {
    Surface& surface;
    std::vector<ControlWidget*> controls;
    QRegion covered;
  };

  // Remembers how the nodes are arranged now; whether that is news.
  bool noteArrangement(const viewkit::PresentationChanges& changes);
  void arrange();
  void mirror(const viewkit::PresentationNode& node, viewkit::Point parentOrigin, double opacity,
              QRect clip, Walk& walk);
  void mirrorControl(const viewkit::PresentationNode& node, const QRectF& frame, double opacity,
                     const QRect& clip, Walk& walk);
  void mirrorInside(const viewkit::PresentationNode& node, const QRectF& frame, double opacity,
                    ControlWidget& control);
  void finish(Walk& walk);
  // Gives the surface a widget for what is painted over its controls, if anything is.
  void cover(Surface& surface);
  ControlWidget& controlFor(const viewkit::PresentationNode& node, QWidget& parent);
  // A widget that has lost its node and can show this one.
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
  Coordinates coordinates_;
  std::unordered_map<viewkit::NodeId, ControlWidget*> controls_;
  // Of nodes that went in this pass, until those that came in it have taken what they can use:
  // making widgets and showing them costs many times what it costs to change them.
  std::vector<ControlWidget*> spares_;
  std::unordered_map<const QWidget*, Surface> surfaces_;
  std::unordered_set<viewkit::NodeId> changed_;
  std::unordered_map<viewkit::NodeId, Arrangement> arrangements_;
  std::vector<QWidget*> tabOrder_;
  std::vector<QWidget*> nextTabOrder_;
  AccessibleTree accessibles_;
};

}  // namespace qt
