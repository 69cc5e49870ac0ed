#include "passes/Presenter.hpp"

#include "passes/Fades.hpp"

#include <algorithm>
#include <utility>

namespace viewkit {

namespace {

// More rectangles than this are not compared with one another.
constexpr std::size_t kDamageCompared = 32;

Rect intersection(const Rect& a, const Rect& b) {
  const Point corner{std::max(a.origin.x, b.origin.x), std::max(a.origin.y, b.origin.y)};
  return {corner,
          {std::min(a.maxX(), b.maxX()) - corner.x, std::min(a.maxY(), b.maxY()) - corner.y}};
}

bool covers(const Rect& outer, const Rect& inner) {
  return inner.origin.x >= outer.origin.x && inner.origin.y >= outer.origin.y &&
         inner.maxX() <= outer.maxX() && inner.maxY() <= outer.maxY();
}

}  // namespace

Rect visibleFrame(const PresentationNode& node) {
  Rect frame = node.frame;
  for (const PresentationNode* outer = node.parent; outer; outer = outer->parent) {
    if (outer->clipRadius) frame = intersection(frame, {{}, outer->frame.size});
    frame = frame.movedBy(outer->frame.origin);
  }
  return frame;
}

NodeId Presenter::add(Node& node) {
  const NodeId id = nextId_++;
  nodes_.emplace(id, &node);
  return id;
}

void Presenter::presentationChanged(Node& node) {
  if (!std::exchange(node.marks.presentation, true)) changed_.push_back(&node);
}

void Presenter::childrenChanged(Node& presenting) {
  if (!std::exchange(presenting.marks.children, true)) changedChildren_.push_back(&presenting);
}

void Presenter::nodeGone(Node& node) {
  Node::Presented* presented = node.presented();
  if (!presented) return;
  if (node.marks.presentation) std::erase(changed_, &node);
  if (node.marks.children) std::erase(changedChildren_, &node);
  hide(*presented);
  nodes_.erase(presented->node.id);
}

void Presenter::addDamage(const Rect& rect) {
  if (rect.isEmpty()) return;
  if (damage_.size() < kDamageCompared) {
    if (std::any_of(damage_.begin(), damage_.end(),
                    [&](const Rect& each) { return covers(each, rect); }))
      return;
    std::erase_if(damage_, [&](const Rect& each) { return covers(rect, each); });
  }
  damage_.push_back(rect);
}

Node::Presented* Presenter::find(NodeId id) const {
  const auto found = nodes_.find(id);
  return found == nodes_.end() ? nullptr : found->second->presented();
}

Node* Presenter::shownNode(NodeId id) const {
  const auto found = nodes_.find(id);
  return found != nodes_.end() && found->second->presented()->isShown ? found->second : nullptr;
}

bool Presenter::isMarked() const {
  return !changed_.empty() || !changedChildren_.empty() || !removed_.empty() || !damage_.empty();
}

void Presenter::refreshSpokenLabels() {
  const auto refresh = [](Node* node) {
    while (node && !node->speaksForContents()) node = node->parent();
    if (node) node->contentsChanged();
  };
  // NOLINTNEXTLINE(modernize-loop-convert): the list grows by the nodes whose label changes
  for (std::size_t i = 0; i < changed_.size(); ++i) {
    if (changed_[i]->inherited().spokenFor != Inherited::SpokenFor::nothing) refresh(changed_[i]);
  }
  for (Node* node : changedChildren_) refresh(node);
}

void Presenter::collectChildren(Node& presenting, const Fades& fades) {
  std::vector<Node::Presented*> children;
  presenting.collectPresentations(children);
  PresentationNode& node = presenting.presented()->node;
  node.children.clear();
  node.children.reserve(children.size());
  for (Node::Presented* child : children) {
    child->node.parent = &node;
    child->place = node.children.size();
    node.children.push_back(&child->node);
  }
  fades.appendPicturesIn(presenting, node.children);
}

void Presenter::hideLeftOut(Node::Presented& presented) {
  const auto& children = presented.node.children;
  bool reordered = false;
  std::size_t place = 0;
  for (const NodeId id : presented.shownChildren) {
    Node::Presented* child = find(id);
    if (!child || child->node.parent != &presented.node) continue;
    if (child->place < children.size() && children[child->place] == &child->node) {
      reordered = reordered || child->place < place;
      place = child->place;
    } else {
      hide(*child);
    }
  }
  // Where children lie over one another, their order is seen.
  if (reordered) addDamage(shownExtent(presented));
  presented.shownChildren.clear();
  for (const PresentationNode* child : children) {
    if (child->id != 0) presented.shownChildren.push_back(child->id);
  }
}

void Presenter::show(Node& node) {
  Node::Presented& presented = *node.presented();
  presented.isShown = true;
  presented.isNew = true;
  new_.push_back(&node);
  for (const NodeId id : presented.shownChildren) {
    Node& child = *nodes_.at(id);
    if (!child.presented()->isShown) show(child);
  }
}

void Presenter::hide(Node::Presented& presented) {
  if (!presented.isShown) return;
  presented.isShown = false;
  removed_.push_back(presented.node.id);
  addDamage(presented.shownFrame);
  for (const NodeId id : presented.shownChildren) {
    Node::Presented* child = find(id);
    if (child && child->node.parent == &presented.node) hide(*child);
  }
}

Rect Presenter::shownExtent(const Node::Presented& presented) const {
  Rect extent = presented.shownFrame;
  if (presented.node.clipRadius) return extent;
  for (const NodeId id : presented.shownChildren) {
    const Node::Presented* child = find(id);
    if (child && child->isShown) extent = extent.united(shownExtent(*child));
  }
  return extent;
}

void Presenter::noteShownFrames(Node::Presented& presented) {
  const Point origin = presented.node.frameInWindow().origin;
  const bool moved = std::exchange(presented.shownOrigin, origin) != origin;
  const Rect frame = visibleFrame(presented.node);
  const bool changed = std::exchange(presented.shownFrame, frame) != frame;
  if (!moved && !changed) return;
  for (const NodeId id : presented.shownChildren) {
    Node::Presented* child = find(id);
    if (child && child->isShown) noteShownFrames(*child);
  }
}

PresentationChanges Presenter::present(Node& root, const Fades& fades) {
  refreshSpokenLabels();
  const auto withNewChildren = std::exchange(changedChildren_, {});
  for (Node* node : withNewChildren) collectChildren(*node, fades);
  for (Node* node : withNewChildren) hideLeftOut(*node->presented());
  if (!root.presented()->isShown) show(root);
  for (Node* node : withNewChildren) {
    if (!node->presented()->isShown) continue;
    for (const NodeId id : node->presented()->shownChildren) {
      Node& child = *nodes_.at(id);
      if (!child.presented()->isShown) show(child);
    }
  }

  PresentationChanges changes;
  for (const Node* node : new_) changes.changed.push_back(&node->presented()->node);
  for (Node* node : withNewChildren) {
    node->marks.children = false;
    const Node::Presented& presented = *node->presented();
    if (presented.isShown && !presented.isNew && !node->marks.presentation)
      changes.changed.push_back(&presented.node);
  }
  for (Node* node : std::exchange(changed_, {})) {
    node->marks.presentation = false;
    Node::Presented& presented = *node->presented();
    if (!presented.isShown || presented.isNew) continue;
    addDamage(shownExtent(presented));
    noteShownFrames(presented);
    addDamage(shownExtent(presented));
    changes.changed.push_back(&presented.node);
  }
  for (Node* node : std::exchange(new_, {})) {
    Node::Presented& presented = *node->presented();
    presented.isNew = false;
    noteShownFrames(presented);
    addDamage(presented.shownFrame);
  }
  changes.removed = std::exchange(removed_, {});
  changes.damage = std::exchange(damage_, {});
  return changes;
}

}  // namespace viewkit
