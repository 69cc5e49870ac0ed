// SPDX-License-Identifier: MIT
#include "window/tooltipAt.hpp"

#include <ranges>

namespace qt {

const viewkit::PresentationNode* tooltipAt(const viewkit::PresentationNode& node,
                                           viewkit::Point point) {
  const viewkit::Point local = point - node.frame.origin;
  const bool inside = viewkit::Rect{{}, node.frame.size}.contains(local);
  if (!inside && (node.clipRadius || node.control())) return nullptr;
  for (const auto* child : std::views::reverse(node.children)) {
    if (const auto* found = tooltipAt(*child, local)) return found;
  }
  return inside && !node.tooltip.empty() ? &node : nullptr;
}

}  // namespace qt
