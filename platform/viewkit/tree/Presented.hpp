// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace viewkit {

class Node;

// What was on the screen after the last present pass. Only the present pass uses it.
struct ScreenState {
  bool isShown = false;
  // Shown for the first time by the pass that is running.
  bool isNew = false;
  // In window coordinates; the frame is the part in sight.
  Point origin;
  Rect frame;
  std::vector<NodeId> children;
  // The position among the parent's children.
  std::size_t position = 0;
};

// The presentation of a node that has one. The setters mark the node for the present pass if there
// is anything new to show or to say.
class Presented {
public:
  using Content = decltype(PresentationNode::content);

  Presented(Node& owner, NodeId id) : owner_(owner) { node.id = id; }

  void setFrame(const Rect& frame);
  void setContent(Content content);
  void setClipRadius(double radius);
  // Adds the label, the help and the selection that modifiers gave to the node.
  void setAccessibility(Accessibility accessibility);
  // The opacity shown is the product of both: the node's own, and how far it has faded in.
  void setOpacity(double opacity);
  void setFade(double fade);

  // What the back end sees. Apart from the setters only the present pass writes it: the children
  // and the parent.
  PresentationNode node;
  ScreenState screen;

private:
  void changed();

  Node& owner_;
  double opacity_ = 1;
  double fade_ = 1;
};

}  // namespace viewkit
