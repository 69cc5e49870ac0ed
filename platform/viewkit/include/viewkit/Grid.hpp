// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Stacks.hpp"
#include "viewkit/View.hpp"

#include <optional>
#include <vector>

namespace viewkit {

// A row of a grid.
//
//     Grid({.horizontalSpacing = 12}, {{.cells = {Text("Ports"), Text("80, 443")}},
//                                      {.cells = {Text("Source"), Text("TCP")}}})
struct GridRow {
  Children cells;
  // Above and below the cells of the row, inside of it.
  double verticalPadding = 0;
  // Identifies the row where rows are inserted and removed.
  std::optional<ViewId> id = std::nullopt;
};

// How a grid places its cells. Lengths are in points. See GridRow.
struct GridOptions {
  HorizontalAlignment horizontalAlignment = HorizontalAlignment::center;
  VerticalAlignment verticalAlignment = VerticalAlignment::center;
  double horizontalSpacing = 8;
  double verticalSpacing = 8;
};

// Cells in rows and columns. A column is as wide as its widest cell, a row as high as its highest.
// Spare width goes to the columns whose cells can use it.
View Grid(const GridOptions& options, std::vector<GridRow> rows);

}  // namespace viewkit
