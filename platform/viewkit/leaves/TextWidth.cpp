// SPDX-License-Identifier: MIT
#include "viewkit/TextWidth.hpp"

#include "tree/CompositeNode.hpp"
#include "viewkit/PlatformMetrics.hpp"

#include <optional>

namespace viewkit {

double textWidth(const std::string& text, const Font& font) {
  const CompositeNode* node = CompositeNode::running();
  if (!node) return 0;
  return node->metrics()
      .measureText({.text = text, .font = font, .lineLimit = 1}, std::nullopt)
      .size.width;
}

}  // namespace viewkit
