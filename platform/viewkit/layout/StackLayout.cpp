// SPDX-License-Identifier: MIT
#include "layout/StackLayout.hpp"

#include "layout/Scratch.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <optional>
#include <tuple>
#include <vector>

namespace viewkit {

namespace {

double along(Axis axis, Size size) { return axis == Axis::horizontal ? size.width : size.height; }
double across(Axis axis, Size size) { return axis == Axis::horizontal ? size.height : size.width; }

ProposedSize proposed(Axis axis, std::optional<double> along, std::optional<double> across) {
  return axis == Axis::horizontal ? ProposedSize{along, across} : ProposedSize{across, along};
}

std::pmr::vector<Measurement> measureAll(Axis axis, std::span<Node* const> children,
                                         std::optional<double> length,
                                         std::optional<double> breadth, double spacing,
                                         Scratch& scratch) {
  std::pmr::vector<Measurement> measurements(children.size(), scratch.memory());
  const auto measureEach = [&](std::optional<double> share) {
    for (std::size_t i = 0; i < children.size(); ++i) {
      measurements[i] = children[i]->measured(proposed(axis, share, breadth));
    }
  };
  // Where the length is open, or there is one child, each child is proposed all of it.
  if (!length || *length == kUnlimited || children.size() == 1) {
    measureEach(length);
    return measurements;
  }

  double left = *length - spacing * static_cast<double>(children.size() - 1);
  // The minimum of the children that take leftover space, reserved until the others are measured.
  double reserved = 0;
  std::size_t sharing = 0;
  std::pmr::vector<double> flexibility(children.size(), scratch.memory());
  std::pmr::vector<std::size_t> order(children.size(), scratch.memory());
  std::iota(order.begin(), order.end(), std::size_t{0});
  for (const std::size_t i : order) {
    const double most = along(axis, children[i]->sizeThatFits(proposed(axis, kUnlimited, breadth)));
    const double least = along(axis, children[i]->sizeThatFits(proposed(axis, 0, breadth)));
    flexibility[i] = most - least;
    if (children[i]->takesLeftoverSpace()) {
      reserved += least;
    } else {
      ++sharing;
    }
  }
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return std::tuple(children[a]->takesLeftoverSpace(), flexibility[a], a) <
           std::tuple(children[b]->takesLeftoverSpace(), flexibility[b], b);
  });
  left -= reserved;
  for (std::size_t done = 0; done < order.size(); ++done) {
    const std::size_t i = order[done];
    if (done == sharing) left += reserved;
    const std::size_t remaining = (done < sharing ? sharing : order.size()) - done;
    const double share = std::max(0.0, left / static_cast<double>(remaining));
    measurements[i] = children[i]->measured(proposed(axis, share, breadth));
    left -= along(axis, measurements[i].size);
  }
  return measurements;
}

}  // namespace

Measurement StackLayout::layOut(std::span<Node* const> children, const ProposedSize& proposal,
                                const Place& place) const {
  if (children.empty()) return {};
  const bool horizontal = axis == Axis::horizontal;
  Scratch scratch;
  const auto measurements =
      horizontal ? measureAll(axis, children, proposal.width, proposal.height, spacing, scratch)
                 : measureAll(axis, children, proposal.height, proposal.width, spacing, scratch);
  const bool byBaseline = horizontal && alignment.vertical == VerticalAlignment::firstTextBaseline;

  double breadth = 0;
  double line = 0;
  for (const Measurement& child : measurements) {
    breadth = std::max(breadth, across(axis, child.size));
    line = std::max(line, child.alignmentLine());
  }
  if (byBaseline) {
    breadth = 0;
    for (const Measurement& child : measurements) {
      breadth = std::max(breadth, line - child.alignmentLine() + child.size.height);
    }
  }

  double position = 0;
  std::optional<double> baseline;
  for (std::size_t i = 0; i < measurements.size(); ++i) {
    const Measurement& child = measurements[i];
    Rect frame{{}, child.size};
    if (horizontal) {
      frame.origin = {position,
                      byBaseline ? line - child.alignmentLine()
                                 : aligned(child.size, {child.size.width, breadth}, alignment).y};
    } else {
      frame.origin = {aligned(child.size, {breadth, child.size.height}, alignment).x, position};
    }
    if (child.firstBaseline) {
      const double childBaseline = frame.origin.y + *child.firstBaseline;
      if (!baseline || (horizontal && childBaseline < *baseline)) baseline = childBaseline;
    }
    position += along(axis, child.size) + spacing;
    if (place) place(i, frame);
  }
  const double length = position - spacing;
  return {horizontal ? Size{length, breadth} : Size{breadth, length}, baseline};
}

}  // namespace viewkit
