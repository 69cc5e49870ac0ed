#pragma once

#include "viewkit/Stacks.hpp"
#include "viewkit/View.hpp"

#include <optional>
#include <vector>

namespace viewkit {

struct GridRow {
  Children cells;
  // Above and below the cells of the row, inside of it.
  double verticalPadding = 0;
  // Where rows come and go: what tells one from another.
  std::optional<ViewId> id = std::nullopt;
};

struct GridOptions {
  HorizontalAlignment horizontalAlignment = HorizontalAlignment::center;
  VerticalAlignment verticalAlignment = VerticalAlignment::center;
  double horizontalSpacing = 8;
  double verticalSpacing = 8;
};

// Cells in rows and columns: each column as wide as its widest cell needs, each row as high as its
// highest. Where there is width to spare it goes to the columns whose cells can use it.
View Grid(const GridOptions& options, std::vector<GridRow> rows);

}  // namespace viewkit
