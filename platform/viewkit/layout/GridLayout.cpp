#include "layout/GridLayout.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>

namespace viewkit {

namespace {

double lineOf(const Measurement& cell) { return cell.firstBaseline.value_or(cell.size.height); }

}  // namespace

std::vector<double> GridLayout::columnWidths(std::span<const Row> rows, std::optional<double> width) const {
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
  std::vector<double> widths(columns);
  if (!width || *width == kUnlimited) {
    for (std::size_t i = 0; i < columns; ++i) widths[i] = widest(i, width);
    return widths;
  }
  // As in a stack: who can give way least is served first.
  std::vector<double> flexibility(columns);
  std::vector<std::size_t> order(columns);
  std::iota(order.begin(), order.end(), std::size_t{0});
  for (const std::size_t i : order) flexibility[i] = widest(i, kUnlimited) - widest(i, 0);
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return flexibility[a] < flexibility[b]; });
  double left = *width - options.horizontalSpacing * static_cast<double>(columns - 1);
  for (std::size_t done = 0; done < columns; ++done) {
    const std::size_t i = order[done];
    widths[i] = widest(i, std::max(0.0, left / static_cast<double>(columns - done)));
    left -= widths[i];
  }
  return widths;
}

GridLayout::Result GridLayout::layOut(std::span<const Row> rows, const ProposedSize& proposal) const {
  Result result;
  if (rows.empty()) return result;
  const std::vector<double> widths = columnWidths(rows, proposal.width);
  double width = std::accumulate(widths.begin(), widths.end(), 0.0);
  if (!widths.empty()) width += options.horizontalSpacing * static_cast<double>(widths.size() - 1);

  double y = 0;
  for (const Row& row : rows) {
    std::vector<Measurement> cells;
    cells.reserve(row.cells.size());
    double height = 0;
    double line = 0;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      cells.push_back(row.cells[i]->measured({widths[i], std::nullopt}));
      height = std::max(height, cells[i].size.height);
      line = std::max(line, lineOf(cells[i]));
    }
    const bool byBaseline = options.verticalAlignment == VerticalAlignment::firstTextBaseline;
    if (byBaseline) {
      height = 0;
      for (const Measurement& cell : cells) height = std::max(height, line - lineOf(cell) + cell.size.height);
    }

    PlacedRow placed{.frame = {{0, y}, {width, height + 2 * row.verticalPadding}}, .cells = {}};
    double x = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const Alignment alignment{options.horizontalAlignment, options.verticalAlignment};
      Point origin = aligned(cells[i].size, {widths[i], height}, alignment);
      if (byBaseline) origin.y = line - lineOf(cells[i]);
      placed.cells.push_back({{x + origin.x, row.verticalPadding + origin.y}, cells[i].size});
      if (!result.measurement.firstBaseline && cells[i].firstBaseline) {
        result.measurement.firstBaseline = y + placed.cells[i].origin.y + *cells[i].firstBaseline;
      }
      x += widths[i] + options.horizontalSpacing;
    }
    y += placed.frame.size.height + options.verticalSpacing;
    result.rows.push_back(std::move(placed));
  }
  result.measurement.size = {width, y - options.verticalSpacing};
  return result;
}

}  // namespace viewkit
