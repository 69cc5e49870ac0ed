#include "SettingsIconRow.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::kCornerLow;
using QEVCommonTools::klear;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View SettingsIconRow::body() const {
  return HStack({.alignment = alignment, .spacing = points(Spacing::s5)},
                {
                    Image::symbol(symbol)
                        .resizable()
                        .scaledToFit()
                        .frame(FixedFrame{.width = iconSize, .height = iconSize})
                        .frame(FixedFrame{.width = 24})
                        .foreground(Color::accent()),
                    content(),
                })
      .padding(Edges::vertical, points(Spacing::s4))
      .padding(Edges::horizontal, points(Spacing::s5))
      .background(RoundedRectangle(kCornerLow).fill(hovering ? Color::primary().withOpacity(0.06) : klear()))
      .padding(Edges::leading, points(leadingInset ? Spacing::s6 : Spacing::s0))
      .onHover([self = *this](bool inside) { self.hovering.set(inside); });
}

}  // namespace QEVSettings
