#pragma once

#include "tree/Node.hpp"
#include "viewkit/PresentationNode.hpp"

#include <unordered_map>
#include <vector>

namespace viewkit {

class Fades;

// The part of a node's frame that is in sight, in window coordinates: clips around it cut it.
Rect visibleFrame(const PresentationNode& node);

// The present pass: keeps the tree of presentation nodes equal to the tree of nodes, and knows the
// difference to what was last shown.
class Presenter {
public:
  NodeId add(Node& node);
  void presentationChanged(Node& node);
  void childrenChanged(Node& presenting);
  void nodeGone(Node& node);
  void addDamage(const Rect& rect);
  // The node with this id, if it is on the screen.
  Node* shownNode(NodeId id) const;

  bool isMarked() const;
  PresentationChanges present(Node& root, const Fades& fades);

private:
  void refreshSpokenLabels();
  void collectChildren(Node& presenting, const Fades& fades);
  void hideLeftOut(Node::Presented& presented);
  void show(Node& node);
  void hide(Node::Presented& presented);
  void noteShownFrames(Node::Presented& presented);
  Rect shownExtent(const Node::Presented& presented) const;
  Node::Presented* find(NodeId id) const;

  NodeId nextId_ = 1;
  std::unordered_map<NodeId, Node*> nodes_;
  std::vector<Node*> changed_;
  std::vector<Node*> changedChildren_;
  std::vector<Node*> new_;
  std::vector<NodeId> removed_;
  std::vector<Rect> damage_;
};

}  // namespace viewkit
