// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Node.hpp"

#include <cstddef>
#include <functional>
#include <span>

namespace viewkit {

// The layout of a stack: measures and places children one after the other along an axis. It keeps
// nothing between two calls.
struct StackLayout {
  Axis axis = Axis::vertical;
  // Only the component across the axis counts.
  Alignment alignment = {};
  double spacing = 0;

  // Called with the position of each child among the children, and its frame.
  using Place = std::function<void(std::size_t child, const Rect& frame)>;
  // Returns the measurement of the stack. Calls `place`, if there is one, for each child.
  Measurement layOut(std::span<Node* const> children, const ProposedSize& proposal,
                     const Place& place = {}) const;
};

}  // namespace viewkit
