#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

// Radii of round corners, points: rows and samples, buttons and list rows, pictures.
inline constexpr double kCornerLow = 4;
inline constexpr double kCornerMed = 6;
inline constexpr double kCornerHigh = 9;

// Which corners of a view are rounded.
enum class RectCorner { allCorners };

// The view cut to its frame, with these corners rounded; the radius in points.
viewkit::View cornerRadius(const viewkit::View& view, double radius, RectCorner corners);

}  // namespace QEVCommonTools
