// SPDX-License-Identifier: MIT
#include "QEVCommonTools/Hairline.hpp"

#include "viewkit/Shape.hpp"

namespace QEVCommonTools {

viewkit::View Hairline::body() const {
  return viewkit::RoundedRectangle().fill(color).frame(viewkit::FixedFrame{.height = 1});
}

}  // namespace QEVCommonTools
