// SPDX-License-Identifier: MIT
#include "passes/Present.hpp"

#include "passes/Animation.hpp"
#include "passes/SpokenLabels.hpp"

#include <algorithm>
#include <utility>

namespace viewkit {

namespace {

Rect intersection(const Rect& a, const Rect& b) {
  const Point corner{std::max(a.origin.x, b.origin.x), std::max(a.origin.y, b.origin.y)};
  return {corner,
          {std::min(a.maxX(), b.maxX()) - corner.x, std::min(a.maxY(), b.maxY()) - corner.y}};
}

}  // namespace

PresentationChanges PresentPass::run(Node& root, const AnimationPass& animation) {
  refreshSpokenLabels(changed_, withNewChildren_);
  const std::vector<Node*> withNewChildren = std::exchange(withNewChildren_, {});
  for (Node* node : withNewChildren) collectChildren(*node, animation);
  for (Node* node : withNewChildren) hideMissing(*node->presented());
  showNew(root, withNewChildren);

  PresentationChanges changes;
  changes.changed = takeChanged(withNewChildren);
  noteNewFrames();
  changes.removed = std::exchange(removed_, {});
  changes.damage = damage_.take();
  return changes;
}

void PresentPass::collectChildren(Node& presenting, const AnimationPass& animation) {
  std::vector<Presented*> children;
  collectPresented(presenting, children);
  PresentationNode& node = presenting.presented()->node;
  node.children.clear();
  node.children.reserve(children.size());
  for (Presented* child : children) {
    child->node.parent = &node;
    child->screen.position = node.children.size();
    node.children.push_back(&child->node);
  }
  animation.appendPicturesIn(presenting, node.children);
}

void collectPresented(Node& node, std::vector<Presented*>& into) {
  node.visitShownChildren([&](Node& child) {
    if (child.presented()) {
      into.push_back(child.presented());
    } else {
      collectPresented(child, into);
    }
  });
}

void PresentPass::hideMissing(Presented& presented) {
  const auto& children = presented.node.children;
  bool isReordered = false;
  std::size_t position = 0;
  for (const NodeId id : presented.screen.children) {
    Presented* child = find(id);
    if (!child || child->node.parent != &presented.node) continue;
    const std::size_t next = child->screen.position;
    if (next < children.size() && children[next] == &child->node) {
      isReordered = isReordered || next < position;
      position = next;
    } else {
      hide(*child);
    }
  }
  // Where children overlap, their order is visible.
  if (isReordered) damage_.add(shownExtent(presented));
  presented.screen.children.clear();
  for (const PresentationNode* child : children) {
    if (child->id != 0) presented.screen.children.push_back(child->id);
  }
}

void PresentPass::hide(Presented& presented) {
  if (!presented.screen.isShown) return;
  presented.screen.isShown = false;
  removed_.push_back(presented.node.id);
  damage_.add(presented.screen.frame);
  for (const NodeId id : presented.screen.children) {
    Presented* child = find(id);
    if (child && child->node.parent == &presented.node) hide(*child);
  }
}

void PresentPass::showNew(Node& root, const std::vector<Node*>& withNewChildren) {
  if (!root.presented()->screen.isShown) show(root);
  for (Node* node : withNewChildren) {
    if (!node->presented()->screen.isShown) continue;
    for (const NodeId id : node->presented()->screen.children) {
      Node& child = *nodes_.at(id);
      if (!child.presented()->screen.isShown) show(child);
    }
  }
}

void PresentPass::show(Node& node) {
  ScreenState& screen = node.presented()->screen;
  screen.isShown = true;
  screen.isNew = true;
  new_.push_back(&node);
  for (const NodeId id : screen.children) {
    Node& child = *nodes_.at(id);
    if (!child.presented()->screen.isShown) show(child);
  }
}

std::vector<const PresentationNode*> PresentPass::takeChanged(
    const std::vector<Node*>& withNewChildren) {
  std::vector<const PresentationNode*> changed;
  changed.reserve(new_.size());
  for (const Node* node : new_) changed.push_back(&node->presented()->node);
  for (Node* node : withNewChildren) {
    node->marks.children = false;
    const Presented& presented = *node->presented();
    if (presented.screen.isShown && !presented.screen.isNew && !node->marks.presentation)
      changed.push_back(&presented.node);
  }
  for (Node* node : std::exchange(changed_, {})) {
    node->marks.presentation = false;
    Presented& presented = *node->presented();
    if (!presented.screen.isShown || presented.screen.isNew) continue;
    damage_.add(shownExtent(presented));
    noteFrames(presented);
    damage_.add(shownExtent(presented));
    changed.push_back(&presented.node);
  }
  return changed;
}

void PresentPass::noteNewFrames() {
  for (Node* node : std::exchange(new_, {})) {
    Presented& presented = *node->presented();
    presented.screen.isNew = false;
    noteFrames(presented);
    damage_.add(presented.screen.frame);
  }
}

void PresentPass::noteFrames(Presented& presented) {
  const Point origin = presented.node.frameInWindow().origin;
  const bool moved = std::exchange(presented.screen.origin, origin) != origin;
  const Rect frame = visibleFrame(presented.node);
  const bool changed = std::exchange(presented.screen.frame, frame) != frame;
  if (!moved && !changed) return;
  for (const NodeId id : presented.screen.children) {
    Presented* child = find(id);
    if (child && child->screen.isShown) noteFrames(*child);
  }
}

Rect PresentPass::shownExtent(const Presented& presented) const {
  Rect extent = presented.screen.frame;
  if (presented.node.clipRadius) return extent;
  for (const NodeId id : presented.screen.children) {
    const Presented* child = find(id);
    if (child && child->screen.isShown) extent = extent.united(shownExtent(*child));
  }
  return extent;
}

Rect visibleFrame(const PresentationNode& node) {
  Rect frame = node.frame;
  for (const PresentationNode* outer = node.parent; outer; outer = outer->parent) {
    if (outer->clipRadius) frame = intersection(frame, {{}, outer->frame.size});
    frame = frame.movedBy(outer->frame.origin);
  }
  return frame;
}

NodeId PresentPass::add(Node& node) {
  const NodeId id = nextId_++;
  nodes_.emplace(id, &node);
  return id;
}

void PresentPass::nodeGone(Node& node) {
  Presented* presented = node.presented();
  if (!presented) return;
  if (node.marks.presentation) std::erase(changed_, &node);
  if (node.marks.children) std::erase(withNewChildren_, &node);
  hide(*presented);
  nodes_.erase(presented->node.id);
}

bool PresentPass::isMarked() const {
  return !changed_.empty() || !withNewChildren_.empty() || !removed_.empty() || !damage_.isEmpty();
}

Presented* PresentPass::find(NodeId id) const {
  const auto found = nodes_.find(id);
  return found == nodes_.end() ? nullptr : found->second->presented();
}

Node* PresentPass::shownNode(NodeId id) const {
  const auto found = nodes_.find(id);
  return found != nodes_.end() && found->second->presented()->screen.isShown ? found->second
                                                                             : nullptr;
}

}  // namespace viewkit
