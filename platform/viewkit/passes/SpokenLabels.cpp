// SPDX-License-Identifier: MIT
#include "passes/SpokenLabels.hpp"

#include "tree/Node.hpp"

#include <cstddef>

namespace viewkit {

namespace {

// The nearest node that speaks for its contents may be the node itself.
void refreshNearest(Node* node) {
  while (node && !node->refreshSpokenContents()) node = node->parent();
}

}  // namespace

void refreshSpokenLabels(const std::vector<Node*>& changed,
                         const std::vector<Node*>& withNewChildren) {
  // NOLINTNEXTLINE(modernize-loop-convert): the list grows by the nodes whose label changes
  for (std::size_t i = 0; i < changed.size(); ++i) {
    if (changed[i]->inherited().spokenFor != Inherited::SpokenFor::nothing)
      refreshNearest(changed[i]);
  }
  for (Node* node : withNewChildren) refreshNearest(node);
}

}  // namespace viewkit
