// SPDX-License-Identifier: MIT
#include "tree/Node.hpp"

#include "tree/NodeServices.hpp"

#include <typeinfo>
#include <utility>

namespace viewkit {

Node::~Node() {
  if (services_) services_->nodeGone(*this);
}

void Node::mount(NodeServices& services, Node* parent, View view, InheritedPtr inherited) {
  services_ = &services;
  parent_ = parent;
  depth_ = parent ? parent->depth_ + 1 : 0;
  active_ = parent ? parent->active_ : true;
  view_ = std::move(view);
  inherited_ = std::move(inherited);
  apply(nullptr);
  if (active_) activeChanged();
}

bool Node::canBecome(const View& next) const {
  if (next.isEmpty()) return false;
  const ViewValue& currentValue = *view_.value();
  const ViewValue& nextValue = *next.value();
  return typeid(nextValue) == typeid(currentValue) && hasSameIdentity(nextValue);
}

bool Node::hasSameIdentity(const ViewValue& next) const {
  static_cast<void>(next);
  return true;
}

void Node::become(View next, InheritedPtr inherited) {
  if (next == view_ && inherited == inherited_) return;
  const View before = std::exchange(view_, std::move(next));
  inherited_ = std::move(inherited);
  apply(before.value());
}

void Node::setActive(bool active) {
  if (active == active_) return;
  active_ = active;
  activeChanged();
  visitShownChildren([&](Node& child) { child.setActive(active); });
}

const InheritedPtr& Node::inheritedByChildren() {
  if (inherited_->forNearest.isEmpty()) return inherited_;
  return inheritedByChildren_.of(inherited_, [](Inherited& next) { next.forNearest = {}; });
}

std::unique_ptr<Node> Node::makeChild(const View& view, const InheritedPtr& inherited) {
  std::unique_ptr<Node> child = view.value()->makeNode();
  child->mount(*services_, this, view, inherited);
  services_->childInserted(*child);
  return child;
}

void Node::removeChild(std::unique_ptr<Node> child) {
  services_->childRemoved(*child, presentingSelfOrAncestor());
  child->setActive(false);
}

void Node::reconcile(std::unique_ptr<Node>& child, const View& next,
                     const InheritedPtr& inherited) {
  if (child && child->canBecome(next)) {
    child->become(next, inherited);
    return;
  }
  if (!child && next.isEmpty()) return;
  if (child) removeChild(std::move(child));
  if (!next.isEmpty()) child = makeChild(next, inherited);
  childrenChanged();
}

Measurement Node::measured(const ProposedSize& proposal) {
  if (!cachesMeasurements()) return measure(proposal);
  const ProposedSize relevant = relevantPart(proposal);
  const LayoutProgress progress = services_->layout;
  if (const auto* known = answers_.find(relevant, progress.era)) return known->measurement();
  if (std::exchange(lastMeasuredPass_, progress.pass) != progress.pass)
    ++services_->counters.nodesLaidOut;
  const Measurement measurement = measure(relevant);
  answers_.add(relevant, measurement, progress.era);
  return measurement;
}

bool Node::remeasuresEqually() {
  childrenMisplaced_ = true;
  const std::uint64_t era = services_->layout.era;
  const LayoutAnswers before = std::exchange(answers_, {});
  bool equal = !before.hasDropped() && cachesMeasurements();
  for (const LayoutAnswers::Answer& answer : before.all()) {
    // Answers from before the window's last resize are not worth the work of measuring them again.
    if (answer.era() != era || measured(answer.proposal()) != answer.measurement()) equal = false;
  }
  return equal;
}

void Node::place(Point origin, Size size) {
  const bool moved = !placed_ || origin != origin_;
  const bool resized = !placed_ || size != size_;
  if (!moved && !resized && !childrenMisplaced_) return;
  placed_ = true;
  origin_ = origin;
  size_ = size;
  if (presented_ && (moved || resized)) presented_->setFrame({origin, size});
  // Children of a presentation are placed in its own coordinates, so its moving does not move them.
  if (resized || childrenMisplaced_ || !presented_) {
    childrenMisplaced_ = false;
    placeChildren();
  }
}

void Node::placeAgain() {
  if (!placed_) return;
  childrenMisplaced_ = false;
  placeChildren();
}

void Node::forgetLayout() {
  answers_.clear();
  placed_ = false;
  visitChildren([](Node& child) { child.forgetLayout(); });
}

void Node::placeChild(Node& child, Point origin, Size size) {
  child.place(presented_ ? origin : origin_ + origin, size);
}

Point Node::originWithin(const Node& presenting) const {
  Point point = origin_;
  for (const Node* node = &presentingAncestor(); node != &presenting;
       node = &node->presentingAncestor()) {
    point = point + node->origin_;
  }
  return point;
}

Node& Node::presentingSelfOrAncestor() {
  Node* node = this;
  while (!node->presented_) node = node->parent_;
  return *node;
}

Presented& Node::present() {
  if (presented_) return *presented_;
  presented_ = std::make_unique<Presented>(*this, services_->addPresentation(*this));
  if (parent_) presentingAncestor().shownChildrenChanged();
  shownChildrenChanged();
  if (placed_) {
    // From now on the children stand in coordinates of this node.
    presented_->node.frame = {origin_, size_};
    placementChanged();
  }
  return *presented_;
}

std::optional<Rect> Node::frameOf(const ViewId& id) const {
  static_cast<void>(id);
  return std::nullopt;
}

void Node::presentationChanged() {
  if (!std::exchange(marks.presentation, true)) services_->markPresentation(*this);
}

void Node::layoutChanged() {
  if (!std::exchange(marks.layout, true)) services_->markLayout(*this);
}

void Node::placementChanged() {
  if (!std::exchange(marks.placement, true)) services_->markPlacement(*this);
}

void Node::shownChildrenChanged() {
  Node& presenting = presentingSelfOrAncestor();
  if (!std::exchange(presenting.marks.children, true)) services_->markChildren(presenting);
}

void Node::childrenChanged() {
  shownChildrenChanged();
  layoutChanged();
}

}  // namespace viewkit
