// SPDX-License-Identifier: MIT
#include "input/PointerRegion.hpp"

#include "tree/Node.hpp"

#include <variant>

namespace viewkit {

namespace {

bool wantsClick(Node& node) {
  const PointerRegion* region = node.pointerRegion();
  return region && region->wantsClick();
}

bool wantsContextMenu(Node& node) {
  const PointerRegion* region = node.pointerRegion();
  return region && region->wantsContextMenu();
}

bool isPopover(const Node& node) {
  const Control* control = node.presented() ? node.presented()->node.control() : nullptr;
  return control && std::holds_alternative<PopoverControl>(*control);
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

Node* nodeWithContextMenuAround(Node& node) {
  Node* around = &node;
  while (around && !wantsContextMenu(*around))
    around = isPopover(*around) ? nullptr : around->parent();
  return around;
}

}  // namespace viewkit
