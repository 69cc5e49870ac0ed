// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

// The scale of the distances between and around views, smallest first. The values are points and
// suit a desktop font of ten points. `padding` of every view takes a step of it.
//
//     Text("DNS").padding(Edges::top, Spacing::s4)
enum class Spacing { s0 = 1, s1 = 2, s2 = 3, s3 = 4, s4 = 5, s5 = 6, s6 = 10, s7 = 16 };

constexpr double points(Spacing spacing) { return static_cast<double>(spacing); }

}  // namespace QEVCommonTools
