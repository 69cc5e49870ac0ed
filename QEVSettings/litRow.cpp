#include "litRow.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Shape.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::kCornerLow;
using QEVCommonTools::klear;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View litRow(const View& content, const Binding<bool>& hovering, double leadingInset) {
  return content.padding(Edges::vertical, points(Spacing::s4))
      .padding(Edges::horizontal, points(Spacing::s5))
      .background(RoundedRectangle(kCornerLow).fill(hovering.get() ? Color::primary().withOpacity(0.06) : klear()))
      .padding(Edges::leading, leadingInset)
      .onHover([hovering](bool inside) { hovering.set(inside); });
}

}  // namespace QEVSettings
