#pragma once

#include "tree/Node.hpp"

#include <cstddef>
#include <functional>
#include <span>

namespace viewkit {

// Children one after the other along an axis.
struct StackLayout {
  Axis axis = Axis::vertical;
  // Across the axis.
  Alignment alignment = {};
  double spacing = 0;

  // Is told where each child goes, by its position.
  using Place = std::function<void(std::size_t child, const Rect& frame)>;
  Measurement layOut(std::span<Node* const> children, const ProposedSize& proposal,
                     const Place& place = {}) const;
};

}  // namespace viewkit
