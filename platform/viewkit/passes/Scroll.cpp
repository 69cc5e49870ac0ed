// SPDX-License-Identifier: MIT
#include "passes/Scroll.hpp"

#include "tree/ScrollRegion.hpp"
#include "tree/ScrollTarget.hpp"

#include <utility>

namespace viewkit {

namespace {

// How often a row that was never built is looked for: the places of such rows are estimated, and
// each scroll makes the estimate better.
constexpr int kMostRounds = 8;

struct Found {
  Node* node = nullptr;
  // In the coordinates of the node.
  Rect frame;
};

Found find(Node& branch, const ViewId& id) {
  if (const auto frame = branch.frameOf(id)) return {&branch, *frame};
  Found found;
  branch.visitShownChildren([&](Node& child) {
    if (!found.node) found = find(child, id);
  });
  return found;
}

}  // namespace

bool scrollIntoSight(Node& node, Rect rect) {
  bool moved = false;
  Node* inner = &node;
  for (Node* outer = node.parent(); outer; outer = outer->parent()) {
    ScrollRegion* const scroll = outer->scrollRegion();
    if (!scroll) continue;
    const Node& content = scroll->content();
    const Rect inContent = inner == &content ? rect : rect.movedBy(inner->originWithin(content));
    moved = scroll->reveal(inContent) || moved;
    rect = inContent.movedBy(Point{} - scroll->visibleRect().origin);
    inner = outer;
  }
  return moved;
}

void ScrollPass::request(std::weak_ptr<ScrollProxy::Target> target, ViewId id) {
  requests_.push_back({std::move(target), std::move(id)});
}

void ScrollPass::run(LayoutPass& layout, Node& root) {
  for (const Request& request : std::exchange(requests_, {})) {
    for (int round = 0; round < kMostRounds; ++round) {
      const auto target = request.target.lock();
      if (!target) break;
      const Found found = find(target->node, request.id);
      if (!found.node || !scrollIntoSight(*found.node, found.frame)) break;
      layout.run(root);
    }
  }
}

}  // namespace viewkit
