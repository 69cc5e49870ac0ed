#include "SettingsIconRow.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "litRow.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View SettingsIconRow::body() const {
  return litRow(HStack({.alignment = alignment, .spacing = points(Spacing::s5)},
                       {
                           Image::symbol(symbol)
                               .resizable()
                               .scaledToFit()
                               .frame(FixedFrame{.width = iconSize, .height = iconSize})
                               .frame(FixedFrame{.width = 24})
                               .foreground(Color::accent()),
                           content(),
                       }),
                hovering.binding(), points(leadingInset ? Spacing::s6 : Spacing::s0));
}

}  // namespace QEVSettings
