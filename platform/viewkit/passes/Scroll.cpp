// SPDX-License-Identifier: MIT
#include "passes/Scroll.hpp"

#include "input/ScrollTarget.hpp"
#include "tree/ScrollRegion.hpp"

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

// The first control in the branch that can have the keyboard; null when there is none.
Node* firstControl(Node& branch) {
  if (const Presented* presented = branch.presented()) {
    const Control* control = presented->node.control();
    if (control && takesKeyboard(*control) && presented->node.accessibility.enabled) return &branch;
  }
  Node* found = nullptr;
  branch.visitShownChildren([&](Node& child) {
    if (!found) found = firstControl(child);
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
  for (const Request& request : std::exchange(requests_, {}))
    scrolledIntoSight(request, layout, root);
}

void ScrollPass::requestFocus(std::weak_ptr<ScrollProxy::Target> target, ViewId id) {
  focus_ = Request{std::move(target), std::move(id)};
}

NodeId ScrollPass::runFocus(LayoutPass& layout, Node& root) {
  const Request request = *std::exchange(focus_, std::nullopt);
  Node* const view = scrolledIntoSight(request, layout, root);
  Node* const control = view ? firstControl(*view) : nullptr;
  return control ? control->presented()->node.id : 0;
}

// The view of the request; null when there is none.
Node* ScrollPass::scrolledIntoSight(const Request& request, LayoutPass& layout, Node& root) {
  Node* view = nullptr;
  for (int round = 0; round < kMostRounds; ++round) {
    const auto target = request.target.lock();
    const Found found = target ? find(target->node, request.id) : Found{};
    view = found.node;
    if (!view || !scrollIntoSight(*view, found.frame)) break;
    layout.run(root);
  }
  return view;
}

}  // namespace viewkit
