#pragma once

#include "Node.hpp"

#include <span>
#include <vector>

namespace viewkit {

// Children one after the other along an axis.
struct StackLayout {
  Axis axis = Axis::vertical;
  // Across the axis.
  Alignment alignment = {};
  double spacing = 0;

  struct Result {
    Measurement measurement;
    // One for each child.
    std::vector<Rect> frames;
  };
  Result layOut(std::span<Node* const> children, const ProposedSize& proposal) const;
};

}  // namespace viewkit
