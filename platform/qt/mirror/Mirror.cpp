// SPDX-License-Identifier: MIT
#include "mirror/Mirror.hpp"

#include "bridge/Strings.hpp"
#include "controls/ControlWidget.hpp"
#include "paint/Look.hpp"
#include "paint/NodePainter.hpp"

#include <QGraphicsOpacityEffect>
#include <QPaintEvent>
#include <QPainterPath>

#include <algorithm>
#include <utility>

namespace qt {

namespace {

// A clip larger than any window, in points.
constexpr QRect kEverything{-1'000'000, -1'000'000, 2'000'000, 2'000'000};

bool isPainted(const viewkit::PresentationNode& node) {
  return !node.control() && !std::holds_alternative<std::monostate>(node.content);
}

bool isClear(const viewkit::PresentationNode& node) {
  const auto* shape = std::get_if<viewkit::ShapeVisual>(&node.content);
  return shape && shape->fill.isClear() && (shape->borderWidth <= 0 || shape->border.isClear());
}

// Fades the widget of a control that contains no views. What paints views itself applies the
// opacity when it paints.
void fade(QWidget& widget, double opacity) {
  auto* effect = qobject_cast<QGraphicsOpacityEffect*>(widget.graphicsEffect());
  if (opacity >= 1) {
    if (effect) widget.setGraphicsEffect(nullptr);
    return;
  }
  if (!effect) {
    effect = new QGraphicsOpacityEffect(&widget);
    widget.setGraphicsEffect(effect);
  }
  effect->setOpacity(opacity);
}

void refresh(ControlWidget& control, const viewkit::PresentationNode& node) {
  const viewkit::Accessibility& accessibility = node.accessibility;
  const QString name = accessibleNameOf(accessibility);
  // Qt announces every name that is set, even one that did not change.
  if (control.widget().accessibleName() != name) control.widget().setAccessibleName(name);
  control.widget().setEnabled(accessibility.enabled);
  if (!accessibility.enabled) control.closeOpened();
  control.refresh();
}

void showOnly(QWidget& widget, const QRect& visible) {
  if (visible == widget.geometry()) {
    if (!widget.mask().isEmpty()) widget.clearMask();
  } else if (!visible.isEmpty()) {
    widget.setMask(visible.translated(-widget.pos()));
  }
  widget.setVisible(!visible.isEmpty());
}

}  // namespace

// Lies above the controls of a surface and paints the nodes that overlap them.
class Mirror::Overlay : public QWidget {
public:
  Overlay(const Mirror& mirror, QWidget& surface)
      : QWidget(&surface), mirror_(mirror), surface_(surface) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
  }

protected:
  void paintEvent(QPaintEvent* event) override {
    QPainter painter(this);
    mirror_.paintSurface(painter, mirror_.surfaces_.at(&surface_), event->rect(), 1, true);
  }

private:
  const Mirror& mirror_;
  QWidget& surface_;
};

Mirror::Mirror(QWidget& canvas, viewkit::ViewHost& host, ControlFactory makeControl)
    : canvas_(canvas), host_(host), makeControl_(std::move(makeControl)) {
  surfaces_[&canvas].widget = &canvas;
}

Mirror::~Mirror() {
  for (const auto& [node, control] : std::exchange(controls_, {})) discard(*control);
  delete surfaces_.at(&canvas_).overlay;
}

void Mirror::show(const viewkit::PresentationChanges& changes) {
  setAside(changes.removed);
  if (noteArrangement(changes)) {
    changed_.clear();
    for (const viewkit::PresentationNode* node : changes.changed) changed_.insert(node->id);
    arrange();
    for (ControlWidget* control : std::exchange(spares_, {})) discard(*control);
  } else {
    for (const viewkit::PresentationNode* node : changes.changed) {
      if (ControlWidget* control = controlOf(node->id)) refresh(*control, *node);
      for (auto& [widget, surface] : surfaces_) {
        if (surface.above.contains(node->id)) updateOverlay(surface);
      }
    }
  }
  for (const viewkit::Rect& rect : changes.damage) damage(rect);
}

bool Mirror::noteArrangement(const viewkit::PresentationChanges& changes) {
  bool isNews = !changes.removed.empty();
  for (const viewkit::NodeId id : changes.removed) arrangements_.erase(id);
  for (const viewkit::PresentationNode* node : changes.changed) {
    const viewkit::Control* control = node->control();
    Arrangement now{.frame = node->frame,
                    .clipRadius = node->clipRadius,
                    .opacity = node->opacity,
                    .kind = {node->content.index(), control ? control->index() : 0},
                    .children = node->children};
    const auto known = arrangements_.find(node->id);
    if (known != arrangements_.end() && known->second == now) continue;
    arrangements_.insert_or_assign(node->id, std::move(now));
    isNews = true;
  }
  return isNews;
}

void Mirror::arrange() {
  const viewkit::PresentationNode& root = host_.presentation();
  coordinates_ = {
      .windowWidth = root.frame.size.width,
      .rightToLeft = host_.environment().layoutDirection == viewkit::LayoutDirection::rightToLeft};
  nextTabOrder_.clear();
  Surface& surface = surfaces_.at(&canvas_);
  surface.node = &root;
  surface.opacity = root.opacity;
  surface.above.clear();
  Walk walk{.surface = surface, .controls = {}, .covered = {}};
  for (const viewkit::PresentationNode* child : root.children)
    mirror(*child, {}, root.opacity, kEverything, walk);
  finish(walk);

  if (nextTabOrder_ == tabOrder_) return;
  tabOrder_ = nextTabOrder_;
  for (size_t i = 1; i < tabOrder_.size(); ++i)
    QWidget::setTabOrder(tabOrder_[i - 1], tabOrder_[i]);
}

void Mirror::mirror(const viewkit::PresentationNode& node, viewkit::Point parentOrigin,
                    double opacity, QRect clip, Walk& walk) {
  const viewkit::Rect inWindow = node.frame.movedBy(parentOrigin);
  const QRectF frame = coordinates_.toDevice(inWindow);
  opacity *= node.opacity;
  if (node.control()) {
    mirrorControl(node, frame, opacity, clip, walk);
    return;
  }
  if (node.clipRadius) clip &= wholePixels(frame);
  if (isPainted(node) && walk.covered.intersects(wholePixels(frame)))
    walk.surface.above.insert(node.id);
  for (const viewkit::PresentationNode* child : node.children)
    mirror(*child, inWindow.origin, opacity, clip, walk);
}

void Mirror::mirrorControl(const viewkit::PresentationNode& node, const QRectF& frame,
                           double opacity, const QRect& clip, Walk& walk) {
  ControlWidget& control = controlFor(node, *walk.surface.widget);
  QWidget& widget = control.widget();
  const QRect place = control.placeFor(wholePixels(frame));
  const bool isInSurface = !control.floats();
  const QRect geometry = place.translated(isInSurface ? -walk.surface.origin : QPoint());
  if (widget.geometry() != geometry) widget.setGeometry(geometry);
  if (isInSurface) {
    walk.covered += place;
    walk.controls.push_back(&control);
  }
  control.setOpacity(opacity);
  if (widget.focusPolicy() & Qt::TabFocus) nextTabOrder_.push_back(&widget);
  if (control.holdsChildren()) {
    mirrorInside(node, frame, opacity, control);
  } else {
    fade(widget, opacity);
  }
  // Shown after its children: one request to the window system then shows them all.
  if (isInSurface) {
    showOnly(widget, geometry & clip.translated(-walk.surface.origin));
  } else {
    widget.show();
    widget.raise();
  }
}

void Mirror::mirrorInside(const viewkit::PresentationNode& node, const QRectF& frame,
                          double opacity, ControlWidget& control) {
  QWidget& widget = control.widget();
  Surface& inner = surfaces_[&widget];
  inner.widget = &widget;
  inner.node = &node;
  inner.nodeOrigin = node.frameInWindow().origin;
  inner.origin = wholePixels(frame).topLeft() - control.contentOrigin();
  inner.opacity = opacity;
  Walk below{.surface = inner, .controls = {}, .covered = {}};
  inner.above.clear();
  for (const viewkit::PresentationNode* child : node.children) {
    mirror(*child, inner.nodeOrigin, opacity, kEverything, below);
  }
  finish(below);
  control.contentsChanged();
}

void Mirror::finish(Walk& walk) {
  Surface& surface = walk.surface;
  updateOverlay(surface);
  if (walk.controls == surface.controls) return;
  surface.controls = walk.controls;
  for (ControlWidget* control : surface.controls) control->widget().raise();
  if (surface.overlay) surface.overlay->raise();
}

void Mirror::updateOverlay(Surface& surface) {
  const bool isNeeded = std::ranges::any_of(surface.above, [&](viewkit::NodeId id) {
    const viewkit::PresentationNode* node = host_.node(id);
    return node && !isClear(*node);
  });
  if (!isNeeded) {
    delete surface.overlay;
    return;
  }
  if (!surface.overlay) surface.overlay = new Overlay(*this, *surface.widget);
  surface.overlay->setGeometry(surface.widget->rect());
  surface.overlay->show();
}

ControlWidget& Mirror::controlFor(const viewkit::PresentationNode& node, QWidget& parent) {
  const auto known = controls_.find(node.id);
  if (known != controls_.end()) {
    ControlWidget& control = *known->second;
    if (control.shows(node)) {
      if (changed_.contains(node.id)) refresh(control, node);
      return control;
    }
    controls_.erase(known);
    discard(control);
  }
  ControlWidget* control = takeSpare(node, parent);
  if (!control) {
    control = makeControl_(*this, node, parent);
    control->widget().setMouseTracking(true);
  }
  refresh(*control, node);
  controls_.emplace(node.id, control);
  return *control;
}

ControlWidget* Mirror::takeSpare(const viewkit::PresentationNode& node, const QWidget& parent) {
  const auto spare = std::ranges::find_if(spares_, [&](ControlWidget* each) {
    return each->shows(node) && each->widget().parentWidget() == &parent && each->isAtRest();
  });
  if (spare == spares_.end()) return nullptr;
  ControlWidget* control = *spare;
  spares_.erase(spare);
  control->takeOver(node);
  return control;
}

void Mirror::setAside(const std::vector<viewkit::NodeId>& removed) {
  for (const viewkit::NodeId id : removed) {
    const auto found = controls_.find(id);
    if (found == controls_.end()) continue;
    found->second->forgetNode();
    spares_.push_back(found->second);
    controls_.erase(found);
  }
  const auto isBusy = [](const ControlWidget* each) { return !each->isAtRest(); };
  // Hiding a widget moves the focus, perhaps to another spare, which is then no longer at rest. So
  // the search starts again after each one.
  for (auto busy = std::ranges::find_if(spares_, isBusy); busy != spares_.end();
       busy = std::ranges::find_if(spares_, isBusy)) {
    ControlWidget& control = **busy;
    spares_.erase(busy);
    discard(control);
  }
}

void Mirror::discard(ControlWidget& control) {
  QWidget& widget = control.widget();
  control.forgetNode();
  surfaces_.erase(&widget);
  for (auto& [parent, surface] : surfaces_) std::erase(surface.controls, &control);
  std::erase(tabOrder_, &widget);
  // A parent that is gone too deletes the widget.
  if (!surfaces_.contains(widget.parentWidget())) return;
  widget.hide();
  // An action of the widget itself may have removed the node, and is still running.
  widget.deleteLater();
}

void Mirror::paint(QPainter& painter, const QWidget& surface, const QRect& dirty,
                   double opacity) const {
  const auto found = surfaces_.find(&surface);
  if (found != surfaces_.end() && found->second.node)
    paintSurface(painter, found->second, dirty, opacity, false);
}

void Mirror::paintSurface(QPainter& painter, const Surface& surface, const QRect& dirty,
                          double opacity, bool above) const {
  painter.save();
  painter.translate(-surface.origin);
  clipToAncestors(painter, surface);
  const auto isWanted = [&](const viewkit::PresentationNode& node) {
    return surface.above.contains(node.id) == above;
  };
  NodePainter(painter, coordinates_, dirty.translated(surface.origin), isWanted)
      .paintChildren(*surface.node, surface.nodeOrigin, surface.opacity * opacity);
  painter.restore();
}

void Mirror::clipToAncestors(QPainter& painter, const Surface& surface) const {
  painter.setRenderHint(QPainter::Antialiasing);
  for (const viewkit::PresentationNode* node = surface.node; node; node = node->parent) {
    if (node->clipRadius.value_or(0) > 0) {
      QPainterPath outline;
      outline.addRoundedRect(coordinates_.toDevice(node->frameInWindow()), *node->clipRadius,
                             *node->clipRadius);
      painter.setClipPath(outline, Qt::IntersectClip);
    }
    // A popover lies above the window, so its ancestors do not clip it.
    if (node->control() && std::holds_alternative<viewkit::PopoverControl>(*node->control()))
      return;
  }
}

void Mirror::damage(const viewkit::Rect& rect) {
  // Glyphs may exceed the frame of their text.
  const QRect inWindow = coordinates_.toDevice(rect).toAlignedRect().adjusted(
      -look::kOverhang, -look::kOverhang, look::kOverhang, look::kOverhang);
  for (auto& [widget, surface] : surfaces_) {
    const QRect part = inWindow.translated(-surface.origin) & widget->rect();
    if (part.isEmpty()) continue;
    surface.widget->update(part);
    if (surface.overlay) surface.overlay->update(part);
  }
}

const Mirror::Surface& Mirror::surfaceAround(const QWidget& widget) const {
  for (const QWidget* each = &widget; each; each = each->parentWidget()) {
    const auto found = surfaces_.find(each);
    if (found != surfaces_.end()) return found->second;
  }
  return surfaces_.at(&canvas_);
}

viewkit::Point Mirror::treePoint(const QWidget& widget, QPointF point) const {
  const Surface& surface = surfaceAround(widget);
  return coordinates_.fromDevice(widget.mapTo(surface.widget, point) + surface.origin);
}

ControlWidget* Mirror::controlAround(const QWidget* widget) const {
  for (const QWidget* each = widget; each && each != &canvas_; each = each->parentWidget()) {
    if (auto* control = dynamic_cast<ControlWidget*>(const_cast<QWidget*>(each))) return control;
  }
  return nullptr;
}

ControlWidget* Mirror::controlOf(viewkit::NodeId id) const {
  const auto found = controls_.find(id);
  return found != controls_.end() ? found->second : nullptr;
}

QWidget* Mirror::widgetOf(viewkit::NodeId id) const {
  ControlWidget* control = controlOf(id);
  return control ? &control->widget() : nullptr;
}

Mirror::Place Mirror::placeOf(const viewkit::PresentationNode& node) const {
  if (ControlWidget* control = controlOf(node.id))
    return {&control->widget(), QRectF(control->widget().rect())};
  const viewkit::PresentationNode* holder = node.parent;
  while (holder && !controlOf(holder->id)) holder = holder->parent;
  const QWidget& widget = holder ? controlOf(holder->id)->widget() : canvas_;
  const Surface& surface = surfaceAround(widget);
  return {&widget, coordinates_.toDevice(node.frameInWindow()).translated(-surface.origin)};
}

}  // namespace qt
