// SPDX-License-Identifier: MIT
#pragma once

#include "layout/Scratch.hpp"
#include "tree/Node.hpp"
#include "viewkit/Grid.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace viewkit {

// The layout of a grid: measures and places cells in rows and columns. It keeps nothing between two
// calls.
struct GridLayout {
  GridOptions options;

  struct Row {
    std::span<Node* const> cells;
    double verticalPadding = 0;
  };
  // Called with the position of each row, its frame, and the frames of its cells in the row's
  // coordinates.
  using Place =
      std::function<void(std::size_t row, const Rect& frame, std::span<const Rect> cells)>;
  Measurement layOut(std::span<const Row> rows, const ProposedSize& proposal,
                     const Place& place = {}) const;

private:
  std::pmr::vector<double> columnWidths(std::span<const Row> rows, std::optional<double> width,
                                        Scratch& scratch) const;
};

}  // namespace viewkit
