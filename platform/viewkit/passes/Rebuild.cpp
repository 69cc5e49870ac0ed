// SPDX-License-Identifier: MIT
#include "passes/Rebuild.hpp"

#include <utility>

namespace viewkit {

void RebuildPass::mark(CompositeNode& node) {
  if (std::exchange(node.marks.body, true)) return;
  if (CompositeNode::running()) {
    deferred_.emplace_back(node);
  } else {
    bodies_.push(node);
  }
}

void RebuildPass::run() {
  while (!bodies_.isEmpty()) {
    // A body higher up may run those below it, or remove them, so it runs first.
    Node* const node = bodies_.pop();
    if (!node) continue;
    node->marks.body = false;
    static_cast<CompositeNode&>(*node).runBody();
  }
}

void RebuildPass::bodyRuns(CompositeNode& node) {
  if (std::exchange(node.marks.body, false)) bodies_.forget(node);
}

std::vector<CompositeNode*> RebuildPass::takeDeferred() {
  std::vector<CompositeNode*> nodes;
  for (const MarkedNode& deferred : std::exchange(deferred_, {})) {
    if (!deferred.node) continue;
    deferred.node->marks.body = false;
    nodes.push_back(static_cast<CompositeNode*>(deferred.node));
  }
  return nodes;
}

void RebuildPass::nodeGone(const Node& node) {
  if (node.marks.body) bodies_.forget(node);
  forgetNode(deferred_, node);
}

}  // namespace viewkit
