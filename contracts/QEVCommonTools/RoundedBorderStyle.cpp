#include "QEVCommonTools/RoundedBorderStyle.hpp"

#include "viewkit/Shape.hpp"

namespace QEVCommonTools {

viewkit::View roundedBorder(const viewkit::View& view, RoundedBorderStyle borderStyle,
                            double cornerRadius, viewkit::Color borderColor, double lineWidth) {
  switch (borderStyle) {
    case RoundedBorderStyle::line:
      return view.overlay(viewkit::RoundedRectangle(cornerRadius).border(borderColor, lineWidth));
    case RoundedBorderStyle::none: return view;
  }
  return view;
}

}  // namespace QEVCommonTools
