// SPDX-License-Identifier: MIT
#include "passes/Layout.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace viewkit {

namespace {

// How often placing views may change their sizes again, as rows do that come into sight.
constexpr int kMostRounds = 8;

}  // namespace

void LayoutPass::setSize(Size size) {
  if (size == size_) return;
  size_ = size;
  ++progress_.era;
  rootChanged_ = true;
}

void LayoutPass::run(Node& root) {
  laidOut_ = laidOut_ || isMarked();
  for (int round = 0; round < kMostRounds; ++round) {
    remeasure();
    if (std::exchange(rootChanged_, false)) root.place({}, size_);
    placeMarked();
    if (layouts_.isEmpty() && placements_.empty()) return;
  }
}

void LayoutPass::remeasure() {
  while (!layouts_.isEmpty()) {
    // The deepest first: the parents that are marked on the way are above all that were taken.
    Node* const node = layouts_.pop();
    if (!node) continue;
    node->marks.layout = false;
    Node* const parent = node->parent();
    if (node->remeasuresEqually() || !parent) {
      if (!std::exchange(node->marks.placement, true)) markPlacement(*node);
    } else {
      if (!std::exchange(parent->marks.layout, true)) markLayout(*parent);
    }
  }
}

void LayoutPass::placeMarked() {
  std::sort(placements_.begin(), placements_.end(), isHigher);
  // While nodes are placed, others may be destroyed, and may be marked: those wait for the next
  // round.
  const std::size_t count = placements_.size();
  for (std::size_t i = 0; i < count; ++i) {
    Node* const node = std::exchange(placements_[i].node, nullptr);
    if (!node) continue;
    node->marks.placement = false;
    node->placeAgain();
  }
  placements_.erase(placements_.begin(), placements_.begin() + static_cast<std::ptrdiff_t>(count));
}

void LayoutPass::nodeGone(const Node& node) {
  if (node.marks.layout) layouts_.forget(node);
  if (node.marks.placement) forgetNode(placements_, node);
}

}  // namespace viewkit
