#pragma once

#include "Node.hpp"
#include "viewkit/Grid.hpp"

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
  struct PlacedRow {
    Rect frame;
    // In the coordinates of the row.
    std::vector<Rect> cells;
  };
  struct Result {
    Measurement measurement;
    std::vector<PlacedRow> rows;
  };
  Result layOut(std::span<const Row> rows, const ProposedSize& proposal) const;

private:
  std::vector<double> columnWidths(std::span<const Row> rows, std::optional<double> width) const;
};

}  // namespace viewkit
