// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

namespace QEVCommonTools {

// A separator between sections: a line one point high, as wide as it may be.
//
//     VStack({}, {Text("Appearance"), Hairline{.color = Color::separator()}, Text("Updates")})
struct Hairline {
  viewkit::Color color;

  viewkit::View body() const;
};

}  // namespace QEVCommonTools
