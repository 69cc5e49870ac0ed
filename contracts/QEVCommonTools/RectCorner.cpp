#include "QEVCommonTools/RectCorner.hpp"

namespace QEVCommonTools {

viewkit::View cornerRadius(const viewkit::View& view, double radius, RectCorner corners) {
  switch (corners) {
    case RectCorner::allCorners: return view.clipped(radius);
  }
  return view;
}

}  // namespace QEVCommonTools
