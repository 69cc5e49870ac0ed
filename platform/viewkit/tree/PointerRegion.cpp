// SPDX-License-Identifier: MIT
#include "tree/PointerRegion.hpp"

#include "tree/Node.hpp"

namespace viewkit {

namespace {

bool wantsClick(Node& node) {
  const PointerRegion* region = node.pointerRegion();
  return region && region->wantsClick();
}

Node* firstClickedWithin(Node& node) {
  if (wantsClick(node)) return &node;
  Node* found = nullptr;
  node.visitShownChildren([&](Node& child) {
    if (!found) found = firstClickedWithin(child);
  });
  return found;
}

}  // namespace

Node* nodeClickedByPressing(Node& node) {
  if (Node* inside = firstClickedWithin(node)) return inside;
  Node* outer = node.parent();
  while (outer && !wantsClick(*outer)) {
    int children = 0;
    outer->visitShownChildren([&](Node& /*child*/) { ++children; });
    outer = children == 1 ? outer->parent() : nullptr;
  }
  return outer;
}

}  // namespace viewkit
