// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

// Radii of round corners, in points.
inline constexpr double kCornerLow = 4;   // samples, lists
inline constexpr double kCornerMed = 6;   // fields, list rows
inline constexpr double kCornerHigh = 9;  // pictures and the buttons that show them

// Which corners of a view are rounded. See CornerRadius.
enum class RectCorner { allCorners };

// The modifier that clips a view to its frame and rounds the frame's corners. The radius is in
// points.
//
//     thumbnail.modifier(CornerRadius{.radius = kCornerHigh})
struct CornerRadius {
  double radius = 0;
  RectCorner corners = RectCorner::allCorners;

  viewkit::View operator()(const viewkit::View& view) const;
};

}  // namespace QEVCommonTools
