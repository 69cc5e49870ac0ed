#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

enum class RoundedBorderStyle {
  line,  // a line along the inside of the edge
  none,
};

// The view with an outline over its edge; lengths in points. A clear colour draws nothing in the
// same space.
viewkit::View roundedBorder(const viewkit::View& view, RoundedBorderStyle borderStyle,
                            double cornerRadius, viewkit::Color borderColor, double lineWidth);

}  // namespace QEVCommonTools
