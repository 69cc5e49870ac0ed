// SPDX-License-Identifier: MIT
#include "passes/Input.hpp"

#include "input/PointerRegion.hpp"
#include "tree/Node.hpp"

#include <algorithm>
#include <utility>

namespace viewkit {

namespace {

// Appends the nodes under the point whose region wants what `wants` asks for, outermost first. The
// point is in the coordinates in which the node is placed.
void collectRegions(Node& node, Point point, bool (PointerRegion::*wants)() const,
                    std::vector<Node*>& into) {
  const Point local = point - node.origin();
  const bool isInside = Rect{{}, node.size()}.contains(local);
  const Presented* const presented = node.presented();
  if (presented && presented->node.clipRadius && !isInside) return;
  if (isInside) {
    const PointerRegion* region = node.pointerRegion();
    if (region && (region->*wants)()) into.push_back(&node);
  }
  node.visitShownChildren(
      [&](Node& child) { collectRegions(child, presented ? local : point, wants, into); });
}

bool contains(const std::vector<Node*>& nodes, const Node* node) {
  return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

}  // namespace

void InputPass::refreshHover(Node& root) {
  std::vector<Node*> nodes;
  if (pointer_) collectRegions(root, *pointer_, &PointerRegion::wantsHover, nodes);
  setHovered(std::move(nodes));
}

void InputPass::setHovered(std::vector<Node*> nodes) {
  const std::vector<Node*> before = std::exchange(hovered_, std::move(nodes));
  // Leaving comes first, so that a value shared by neighbours ends with the one entered.
  for (Node* node : before) {
    if (!contains(hovered_, node)) node->pointerRegion()->hover(false);
  }
  for (Node* node : hovered_) {
    if (!contains(before, node)) node->pointerRegion()->hover(true);
  }
}

bool clickAt(Point point, Node& root) {
  std::vector<Node*> nodes;
  collectRegions(root, point, &PointerRegion::wantsClick, nodes);
  if (nodes.empty()) return false;
  nodes.back()->pointerRegion()->click();
  return true;
}

Node* nodeWithContextMenuAt(Point point, Node& root) {
  std::vector<Node*> nodes;
  collectRegions(root, point, &PointerRegion::wantsContextMenu, nodes);
  return nodes.empty() ? nullptr : nodes.back();
}

}  // namespace viewkit
