#include "OptionRow.hpp"

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

View OptionRow::body() const {
  return HStack({.alignment = alignment, .spacing = points(Spacing::s5)},
                {
                    Image::symbol(symbol)
                        .resizable()
                        .scaledToFit()
                        .frame(FixedFrame{.width = 15, .height = 15})
                        .frame(FixedFrame{.width = 20})
                        .foreground(Color::accent()),
                    content,
                })
      .padding(Edges::vertical, points(Spacing::s4))
      .padding(Edges::horizontal, points(Spacing::s5))
      .background(RoundedRectangle(kCornerLow).fill(hovering ? Color::primary().withOpacity(0.06) : klear()))
      .onHover([self = *this](bool inside) { self.hovering.set(inside); });
}

}  // namespace QEVSettings
