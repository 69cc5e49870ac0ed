#include "Node.hpp"

#include "Runtime.hpp"

#include <cmath>
#include <typeinfo>
#include <utility>

namespace viewkit {

Node::~Node() {
  if (runtime_) runtime_->nodeGone(*this);
}

void Node::mount(ViewHost::Runtime& runtime, Node* parent, View view, InheritedPtr inherited) {
  runtime_ = &runtime;
  parent_ = parent;
  depth_ = parent ? parent->depth_ + 1 : 0;
  active_ = parent ? parent->active_ : true;
  view_ = std::move(view);
  inherited_ = std::move(inherited);
  apply();
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
  view_ = std::move(next);
  inherited_ = std::move(inherited);
  apply();
}

void Node::setActive(bool active) {
  if (active == active_) return;
  active_ = active;
  activeChanged();
  visitShownChildren([&](Node& child) { child.setActive(active); });
}

const Measurement& Node::measured(const ProposedSize& proposal) {
  for (const Answer& answer : answers_) {
    if (answer.proposal == proposal) return answer.measurement;
  }
  ++runtime_->counters().nodesLaidOut;
  const Measurement measurement = measure(proposal);
  return answers_.emplace_back(proposal, measurement).measurement;
}

bool Node::remeasuresEqually() {
  const std::vector<Answer> before = std::exchange(answers_, {});
  bool equal = true;
  for (const Answer& answer : before) equal = measured(answer.proposal) == answer.measurement && equal;
  return equal;
}

void Node::place(Point origin, Size size) {
  const bool moved = !placed_ || origin != origin_;
  const bool resized = !placed_ || size != size_;
  if (!moved && !resized) return;
  placed_ = true;
  origin_ = origin;
  size_ = size;
  if (presented_) {
    presented_->node.frame = {origin, size};
    presentationChanged();
  }
  // Children of a presentation are placed in its own coordinates, so its moving does not move them.
  if (resized || !presented_) placeChildren();
}

void Node::placeAgain() {
  if (placed_) placeChildren();
}

void Node::forgetLayout() {
  answers_.clear();
  placed_ = false;
  visitChildren([](Node& child) { child.forgetLayout(); });
}

void Node::placeChild(Node& child, Point origin, Size size) {
  child.place(presented_ ? origin : origin_ + origin, size);
}

Node& Node::presentingAncestor() { return parent_->presentingSelfOrAncestor(); }

Node& Node::presentingSelfOrAncestor() {
  Node* node = this;
  while (!node->presented_) node = node->parent_;
  return *node;
}

void Node::collectPresentations(std::vector<Presented*>& into) {
  visitShownChildren([&](Node& child) {
    if (child.presented_) {
      into.push_back(child.presented_.get());
    } else {
      child.collectPresentations(into);
    }
  });
}

PresentationNode& Node::present() {
  if (!presented_) {
    presented_ = std::make_unique<Presented>();
    presented_->node.id = runtime_->addPresentation(*this);
    if (parent_) runtime_->childrenChanged(presentingAncestor());
    runtime_->childrenChanged(*this);
    // From now on the children stand in coordinates of this node.
    placed_ = false;
    layoutChanged();
  }
  return presented_->node;
}

void Node::presentationChanged() { runtime_->presentationChanged(*this); }

void Node::setOpacity(double opacity) {
  present().opacity = opacity * presented_->fade;
  presented_->opacity = opacity;
  presentationChanged();
}

void Node::setFade(double fade) {
  if (!presented_) {
    visitShownChildren([&](Node& child) { child.setFade(fade); });
    return;
  }
  presented_->fade = fade;
  presented_->node.opacity = presented_->opacity * fade;
  presentationChanged();
}

void Node::layoutChanged() { runtime_->layoutChanged(*this); }

void Node::childrenChanged() {
  runtime_->childrenChanged(presentingSelfOrAncestor());
  layoutChanged();
}

std::unique_ptr<Node> Node::makeChild(const View& view, const InheritedPtr& inherited) {
  std::unique_ptr<Node> child = view.value()->makeNode();
  child->mount(*runtime_, this, view, inherited);
  runtime_->inserted(*child);
  return child;
}

void Node::removeChild(std::unique_ptr<Node> child) {
  runtime_->removing(*child, presentingSelfOrAncestor());
  child->setActive(false);
}

void Node::reconcile(std::unique_ptr<Node>& child, const View& next, const InheritedPtr& inherited) {
  if (child && child->canBecome(next)) {
    child->become(next, inherited);
    return;
  }
  if (!child && next.isEmpty()) return;
  if (child) removeChild(std::move(child));
  if (!next.isEmpty()) child = makeChild(next, inherited);
  childrenChanged();
}

InheritedPtr Node::inheritedByChildren() const {
  if (inherited_->help.empty() && inherited_->accessibilityLabel.empty()) return inherited_;
  if (inheritedFrom_ != inherited_) {
    auto forChildren = std::make_shared<Inherited>(*inherited_);
    forChildren->help.clear();
    forChildren->accessibilityLabel.clear();
    inheritedByChildren_ = std::move(forChildren);
    inheritedFrom_ = inherited_;
  }
  return inheritedByChildren_;
}

NodeDescription Node::describe(Point parentOrigin) {
  const Point origin = parentOrigin + origin_;
  NodeDescription description{
      .kind = kind(),
      .accessibility = presented_ ? presented_->node.accessibility : Accessibility{},
      .frame = {origin, size_},
      .children = {},
  };
  visitShownChildren(
      [&](Node& child) { description.children.push_back(child.describe(presented_ ? origin : parentOrigin)); });
  return description;
}

void Node::collectRegions(Point point, std::vector<Node*>& into) {
  const Point local = point - origin_;
  const bool inside = Rect{{}, size_}.contains(local);
  if (presented_ && presented_->node.clipRadius && !inside) return;
  if (inside && (wantsHover() || wantsClick())) into.push_back(this);
  visitShownChildren([&](Node& child) { child.collectRegions(presented_ ? local : point, into); });
}

Point aligned(Size inner, Size outer, Alignment alignment) {
  Point point;
  const double spareWidth = outer.width - inner.width;
  const double spareHeight = outer.height - inner.height;
  switch (alignment.horizontal) {
    case HorizontalAlignment::leading: break;
    // Whole points keep lines and letters sharp.
    case HorizontalAlignment::center: point.x = std::floor(spareWidth / 2); break;
    case HorizontalAlignment::trailing: point.x = spareWidth; break;
  }
  switch (alignment.vertical) {
    case VerticalAlignment::top:
    case VerticalAlignment::firstTextBaseline: break;
    case VerticalAlignment::center: point.y = std::floor(spareHeight / 2); break;
    case VerticalAlignment::bottom: point.y = spareHeight; break;
  }
  return point;
}

}  // namespace viewkit
