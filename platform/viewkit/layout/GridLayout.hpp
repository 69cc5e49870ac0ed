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

// Cells in rows and columns.
struct GridLayout {
  GridOptions options;

  struct Row {
    std::span<Node* const> cells;
    double verticalPadding = 0;
  };
  // Is told where each row goes, by its position, and its cells in the coordinates of the row.
  using Place =
      std::function<void(std::size_t row, const Rect& frame, std::span<const Rect> cells)>;
  Measurement layOut(std::span<const Row> rows, const ProposedSize& proposal,
                     const Place& place = {}) const;

private:
  std::pmr::vector<double> columnWidths(std::span<const Row> rows, std::optional<double> width,
                                        Scratch& scratch) const;
};

}  // namespace viewkit
