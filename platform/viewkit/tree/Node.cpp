#include "tree/Node.hpp"

#include "passes/Runtime.hpp"
#include "tree/VisualDescription.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <variant>

namespace viewkit {

namespace {

// As many different questions as a few containers inside one another ask in one layout.
constexpr std::size_t kAnswersKept = 16;
// As many as most nodes are asked.
constexpr std::size_t kAnswersExpected = 4;

constexpr double kNone = -std::numeric_limits<double>::infinity();

std::optional<double> unlessNone(double length) {
  return length == kNone ? std::nullopt : std::optional(length);
}

}  // namespace

Node::Answer::Answer(const ProposedSize& proposal, const Measurement& measurement,
                     std::uint64_t era)
    : proposedWidth(proposal.width.value_or(kNone)),
      proposedHeight(proposal.height.value_or(kNone)),
      size(measurement.size),
      firstBaseline(measurement.firstBaseline.value_or(kNone)),
      era(era) {}

ProposedSize Node::Answer::proposal() const {
  return {unlessNone(proposedWidth), unlessNone(proposedHeight)};
}

Measurement Node::Answer::measurement() const { return {size, unlessNone(firstBaseline)}; }

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

Measurement Node::measured(const ProposedSize& offer) {
  if (!answersForItself()) return measure(offer);
  const ProposedSize proposal = heeded(offer);
  const std::uint64_t era = runtime_->layoutEra();
  const Answer question(proposal, {}, era);
  for (Answer& answer : answers_) {
    if (!answer.answers(question)) continue;
    answer.era = era;
    return answer.measurement();
  }
  const std::uint64_t before = std::exchange(laidOutIn_, runtime_->layoutPass());
  if (before != laidOutIn_) ++runtime_->counters().nodesLaidOut;
  const Measurement measurement = measure(proposal);
  if (answers_.size() == kAnswersKept) {
    const auto oldest =
        std::min_element(answers_.begin(), answers_.end(),
                         [](const Answer& a, const Answer& b) { return a.era < b.era; });
    answers_.erase(oldest);
    forgotAnswers_ = true;
  }
  if (answers_.empty()) answers_.reserve(kAnswersExpected);
  answers_.emplace_back(proposal, measurement, era);
  return measurement;
}

bool Node::remeasuresEqually() {
  childrenMisplaced_ = true;
  const std::uint64_t era = runtime_->layoutEra();
  const std::vector<Answer> before = std::exchange(answers_, {});
  bool equal = !std::exchange(forgotAnswers_, false) && answersForItself();
  for (const Answer& answer : before) {
    // Answers from before the window's last resize are not worth the work of checking them.
    equal = equal && answer.era == era;
    if (answer.era == era) equal = measured(answer.proposal()) == answer.measurement() && equal;
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
  if (presented_ && (moved || resized)) {
    presented_->node.frame = {origin, size};
    presentationChanged();
  }
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
  forgotAnswers_ = false;
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

Node& Node::presentingAncestor() const { return parent_->presentingSelfOrAncestor(); }

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
    if (placed_) {
      // From now on the children stand in coordinates of this node.
      presented_->node.frame = {origin_, size_};
      placementChanged();
    }
  }
  return presented_->node;
}

void Node::presentationChanged() { runtime_->presentationChanged(*this); }

void Node::setOpacity(double opacity) {
  present();
  if (opacity == presented_->opacity) return;
  presented_->opacity = opacity;
  setFade(presented_->fade);
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

void Node::setContent(decltype(PresentationNode::content) content) {
  PresentationNode& node = present();
  const auto isSame = [&]<class Content>(const Content& before) {
    const auto* after = std::get_if<Content>(&content);
    if constexpr (std::is_same_v<Content, Control>) {
      return after && looksLike(before, *after);
    } else {
      return after && before == *after;
    }
  };
  const bool same = std::visit(isSame, node.content);
  // The functions of a control are new even where its looks are not.
  node.content = std::move(content);
  if (!same) presentationChanged();
}

void Node::setAccessibility(Accessibility accessibility) {
  PresentationNode& node = present();
  const Inherited::ForOne& own = inherited_->forOne;
  if (!own.accessibilityLabel.empty()) accessibility.label = own.accessibilityLabel;
  if (!own.help.empty()) accessibility.help = own.help;
  if (own.selected) accessibility.selected = own.selected;
  accessibility.enabled = inherited_->enabled;
  if (!speaksForItself()) accessibility.role = Role::none;
  if (node.accessibility == accessibility && node.tooltip == own.help) return;
  node.accessibility = std::move(accessibility);
  node.tooltip = own.help;
  presentationChanged();
}

void Node::layoutChanged() { runtime_->layoutChanged(*this); }
void Node::placementChanged() { runtime_->placementChanged(*this); }
void Node::shownChildrenChanged() { runtime_->childrenChanged(presentingSelfOrAncestor()); }

void Node::childrenChanged() {
  shownChildrenChanged();
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

const InheritedPtr& Node::inheritedByChildren() {
  if (inherited_->forOne.isEmpty()) return inherited_;
  return withoutForOne_.from(inherited_, [](Inherited& next) { next.forOne = {}; });
}

bool Node::speaksForItself() const {
  using SpokenFor = Inherited::SpokenFor;
  const bool isControl = presented_ && presented_->node.control();
  return inherited_->spokenFor == SpokenFor::nothing ||
         (inherited_->spokenFor == SpokenFor::allButControls && isControl);
}

std::string Node::spokenContents() {
  std::string words;
  for (const bool withControls : {false, true}) {
    if (words.empty())
      visitShownChildren([&](Node& child) { child.appendSpoken(words, withControls); });
  }
  return words;
}

void Node::appendSpoken(std::string& into, bool withControls) {
  if (inherited_->spokenFor == Inherited::SpokenFor::allButControls && speaksForItself() &&
      !withControls)
    return;
  if (presented_ && !presented_->node.accessibility.label.empty()) {
    if (!into.empty()) into += ' ';
    into += presented_->node.accessibility.label;
    return;
  }
  visitShownChildren([&](Node& child) { child.appendSpoken(into, withControls); });
}

NodeDescription Node::describe(Point parentOrigin) {
  const Point origin = parentOrigin + origin_;
  NodeDescription description{
      .kind = kind(),
      .accessibility = presented_ ? presented_->node.accessibility : Accessibility{},
      .frame = {origin, size_},
      .visual = presented_ ? describeVisual(presented_->node) : std::string(),
      .children = {},
  };
  visitShownChildren([&](Node& child) {
    description.children.push_back(child.describe(presented_ ? origin : parentOrigin));
  });
  return description;
}

Node::Found Node::find(const ViewId& id) {
  Found found;
  visitShownChildren([&](Node& child) {
    if (!found.node) found = child.find(id);
  });
  return found;
}

void Node::collectRegions(Point point, std::vector<Node*>& into) {
  const Point local = point - origin_;
  const bool inside = Rect{{}, size_}.contains(local);
  if (presented_ && presented_->node.clipRadius && !inside) return;
  if (inside && (wantsHover() || wantsClick())) into.push_back(this);
  visitShownChildren([&](Node& child) { child.collectRegions(presented_ ? local : point, into); });
}

Node* Node::clickRegion() {
  const std::function<Node*(Node&)> inside = [&](Node& node) -> Node* {
    if (node.wantsClick()) return &node;
    Node* region = nullptr;
    node.visitShownChildren([&](Node& child) {
      if (!region) region = inside(child);
    });
    return region;
  };
  if (Node* region = inside(*this)) return region;
  // A region around others as well is not this node's.
  Node* node = parent_;
  while (node && !node->wantsClick()) {
    int children = 0;
    node->visitShownChildren([&](Node& /*child*/) { ++children; });
    node = children == 1 ? node->parent_ : nullptr;
  }
  return node;
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
