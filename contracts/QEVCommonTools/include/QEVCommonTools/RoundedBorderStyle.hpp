// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

// Where the outline of a RoundedBorder is drawn, if anywhere. See RoundedBorder.
enum class RoundedBorderStyle {
  line,  // along the inside of the edge
  none,
};

// The modifier that draws an outline over a view, inside its frame. Lengths are in points. The
// outline takes no space, whatever its colour.
//
//     field.modifier(RoundedBorder{.cornerRadius = kCornerMed, .borderColor = Color::systemRed()})
struct RoundedBorder {
  RoundedBorderStyle borderStyle = RoundedBorderStyle::line;
  double cornerRadius = 0;
  viewkit::Color borderColor;
  double lineWidth = 1;

  viewkit::View operator()(const viewkit::View& view) const;
};

}  // namespace QEVCommonTools
