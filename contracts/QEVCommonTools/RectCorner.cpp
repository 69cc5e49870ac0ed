// SPDX-License-Identifier: MIT
#include "QEVCommonTools/RectCorner.hpp"

namespace QEVCommonTools {

viewkit::View CornerRadius::operator()(const viewkit::View& view) const {
  switch (corners) {
    case RectCorner::allCorners: return view.clipped(radius);
  }
  return view;
}

}  // namespace QEVCommonTools
