// SPDX-License-Identifier: MIT
#include "passes/Describe.hpp"

#include "passes/VisualDescription.hpp"
#include "tree/Node.hpp"

namespace viewkit {

NodeDescription describe(Node& node, Point origin) {
  const Presented* const presented = node.presented();
  const Point nodeOrigin = origin + node.origin();
  NodeDescription description{
      .kind = node.view().value()->kind(),
      .accessibility = presented ? presented->node.accessibility : Accessibility{},
      .frame = {nodeOrigin, node.size()},
      .visual = presented ? describeVisual(presented->node) : std::string(),
      .children = {},
  };
  node.visitShownChildren([&](Node& child) {
    description.children.push_back(describe(child, presented ? nodeOrigin : origin));
  });
  return description;
}

}  // namespace viewkit
