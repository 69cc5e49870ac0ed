// SPDX-License-Identifier: MIT
#pragma once

#include "passes/Damage.hpp"
#include "tree/Node.hpp"
#include "viewkit/PresentationNode.hpp"

#include <unordered_map>
#include <vector>

namespace viewkit {

class AnimationPass;

// The part of a node's frame that is in sight, in window coordinates: what the clips around it
// leave.
Rect visibleFrame(const PresentationNode& node);

// Appends the presentations nearest below the node.
void collectPresented(Node& node, std::vector<Presented*>& into);

// The present pass: keeps the tree of presentations equal to the tree of nodes, and finds the
// difference to what was last shown.
class PresentPass {
public:
  NodeId add(Node& node);
  void markPresentation(Node& node) { changed_.push_back(&node); }
  void markChildren(Node& presenting) { withNewChildren_.push_back(&presenting); }
  void addDamage(const Rect& rect) { damage_.add(rect); }
  void nodeGone(Node& node);
  bool isMarked() const;

  PresentationChanges run(Node& root, const AnimationPass& animation);

  // The node of the presentation with this id, if it is on the screen.
  Node* shownNode(NodeId id) const;

private:
  void collectChildren(Node& presenting, const AnimationPass& animation);
  void hideMissing(Presented& presented);
  void showNew(Node& root, const std::vector<Node*>& withNewChildren);
  void show(Node& node);
  void hide(Presented& presented);
  void noteNewFrames();
  void noteFrames(Presented& presented);
  Rect shownExtent(const Presented& presented) const;
  Presented* find(NodeId id) const;
  std::vector<const PresentationNode*> takeChanged(const std::vector<Node*>& withNewChildren);

  NodeId nextId_ = 1;
  std::unordered_map<NodeId, Node*> nodes_;
  std::vector<Node*> changed_;
  std::vector<Node*> withNewChildren_;
  std::vector<Node*> new_;
  std::vector<NodeId> removed_;
  Damage damage_;
};

}  // namespace viewkit
