// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

#include <optional>
#include <vector>

namespace viewkit {

class Node;

// The input pass: finds the pointer regions under a point, and tells them when the pointer enters
// and leaves.
class InputPass {
public:
  // Where the pointer is, in window coordinates, if it is in the window.
  void setPointer(std::optional<Point> point) { pointer_ = point; }
  // Finds the regions under the pointer anew, and tells those that it entered or left.
  void refreshHover(Node& root);
  void nodeGone(const Node& node) { std::erase(hovered_, &node); }

private:
  void setHovered(std::vector<Node*> nodes);

  std::optional<Point> pointer_;
  // The nodes under the pointer that want to know, outermost first.
  std::vector<Node*> hovered_;
};

// Clicks the innermost node under the point that wants clicks. Returns whether there is one.
bool clickAt(Point point, Node& root);

// The innermost node under the point that has a context menu; null for none.
Node* nodeWithContextMenuAt(Point point, Node& root);

}  // namespace viewkit
