// SPDX-License-Identifier: MIT
#include "QEVCommonTools/RoundedBorderStyle.hpp"

#include "viewkit/Shape.hpp"

namespace QEVCommonTools {

viewkit::View RoundedBorder::operator()(const viewkit::View& view) const {
  switch (borderStyle) {
    case RoundedBorderStyle::line:
      return view.overlay(viewkit::RoundedRectangle(cornerRadius).border(borderColor, lineWidth));
    case RoundedBorderStyle::none: return view;
  }
  return view;
}

}  // namespace QEVCommonTools
