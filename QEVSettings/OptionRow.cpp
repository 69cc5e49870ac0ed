#include "OptionRow.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "litRow.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View OptionRow::body() const {
  return litRow(HStack({.alignment = alignment, .spacing = points(Spacing::s5)},
                       {
                           Image::symbol(symbol)
                               .resizable()
                               .scaledToFit()
                               .frame(FixedFrame{.width = 15, .height = 15})
                               .frame(FixedFrame{.width = 20})
                               .foreground(Color::accent()),
                           content,
                       }),
                hovering.binding());
}

}  // namespace QEVSettings
