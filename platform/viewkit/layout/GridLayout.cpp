// SPDX-License-Identifier: MIT
#include "layout/GridLayout.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>
#include <utility>

namespace viewkit {

std::pmr::vector<double> GridLayout::columnWidths(std::span<const Row> rows,
                                                  std::optional<double> width,
                                                  Scratch& scratch) const {
  std::size_t columns = 0;
  for (const Row& row : rows) columns = std::max(columns, row.cells.size());
  const auto widest = [&](std::size_t column, std::optional<double> offered) {
    double most = 0;
    for (const Row& row : rows) {
      if (column < row.cells.size()) {
        most = std::max(most, row.cells[column]->sizeThatFits({offered, std::nullopt}).width);
      }
    }
    return most;
  };
  std::pmr::vector<double> widths(columns, scratch.memory());
  if (!width || *width == kUnlimited) {
    for (std::size_t i = 0; i < columns; ++i) widths[i] = widest(i, width);
    return widths;
  }
  // As in a stack, the least flexible column is measured first.
  std::pmr::vector<double> flexibility(columns, scratch.memory());
  std::pmr::vector<std::size_t> order(columns, scratch.memory());
  std::iota(order.begin(), order.end(), std::size_t{0});
  for (const std::size_t i : order) flexibility[i] = widest(i, kUnlimited) - widest(i, 0);
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return std::pair(flexibility[a], a) < std::pair(flexibility[b], b);
  });
  double left = *width - options.horizontalSpacing * static_cast<double>(columns - 1);
  for (std::size_t done = 0; done < columns; ++done) {
    const std::size_t i = order[done];
    widths[i] = widest(i, std::max(0.0, left / static_cast<double>(columns - done)));
    left -= widths[i];
  }
  return widths;
}

Measurement GridLayout::layOut(std::span<const Row> rows, const ProposedSize& proposal,
                               const Place& place) const {
  if (rows.empty()) return {};
  Scratch scratch;
  const std::pmr::vector<double> widths = columnWidths(rows, proposal.width, scratch);
  double width = std::accumulate(widths.begin(), widths.end(), 0.0);
  if (!widths.empty()) width += options.horizontalSpacing * static_cast<double>(widths.size() - 1);

  std::pmr::vector<Measurement> cells(scratch.memory());
  std::pmr::vector<Rect> frames(scratch.memory());
  cells.reserve(widths.size());
  frames.reserve(widths.size());
  std::optional<double> firstBaseline;
  double y = 0;
  for (std::size_t rowIndex = 0; rowIndex < rows.size(); ++rowIndex) {
    const Row& row = rows[rowIndex];
    cells.clear();
    frames.clear();
    double height = 0;
    double line = 0;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      cells.push_back(row.cells[i]->measured({widths[i], std::nullopt}));
      height = std::max(height, cells[i].size.height);
      line = std::max(line, cells[i].alignmentLine());
    }
    const bool byBaseline = options.verticalAlignment == VerticalAlignment::firstTextBaseline;
    if (byBaseline) {
      height = 0;
      for (const Measurement& cell : cells)
        height = std::max(height, line - cell.alignmentLine() + cell.size.height);
    }

    const Rect frame{{0, y}, {width, height + 2 * row.verticalPadding}};
    double x = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const Alignment alignment{options.horizontalAlignment, options.verticalAlignment};
      Point origin = aligned(cells[i].size, {widths[i], height}, alignment);
      if (byBaseline) origin.y = line - cells[i].alignmentLine();
      frames.push_back({{x + origin.x, row.verticalPadding + origin.y}, cells[i].size});
      if (!firstBaseline && cells[i].firstBaseline) {
        firstBaseline = y + frames[i].origin.y + *cells[i].firstBaseline;
      }
      x += widths[i] + options.horizontalSpacing;
    }
    y += frame.size.height + options.verticalSpacing;
    if (place) place(rowIndex, frame, frames);
  }
  return {{width, y - options.verticalSpacing}, firstBaseline};
}

}  // namespace viewkit
