#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

// The steps between and around things, smallest first; the values are points. They suit a desktop
// font of ten points.
enum class Spacing { s0 = 1, s1 = 2, s2 = 3, s3 = 4, s4 = 5, s5 = 6, s6 = 10, s7 = 16 };

constexpr double points(Spacing spacing) { return static_cast<double>(spacing); }

}  // namespace QEVCommonTools
