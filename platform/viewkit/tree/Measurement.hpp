// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

#include <optional>

namespace viewkit {

enum class Axis { horizontal, vertical };

// A view's answer to a proposed size: the size that it takes, and the distance from its top to the
// first baseline of its text, if it has any.
struct Measurement {
  Size size;
  std::optional<double> firstBaseline = std::nullopt;

  // The distance from the top to the line by which views are aligned on a common baseline. A view
  // without text stands on the line with its bottom edge.
  double alignmentLine() const { return firstBaseline.value_or(size.height); }
  friend bool operator==(const Measurement&, const Measurement&) = default;
};

// The origin of a box of size `inner` that is aligned within a box of size `outer`.
Point aligned(Size inner, Size outer, Alignment alignment);

}  // namespace viewkit
