// SPDX-License-Identifier: MIT
#include "general/AppearanceModeButton.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/RoundedBorderStyle.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::CornerRadius;
using QEVCommonTools::kCornerHigh;
using QEVCommonTools::klear;
using QEVCommonTools::points;
using QEVCommonTools::RoundedBorder;
using QEVCommonTools::RoundedBorderStyle;
using QEVCommonTools::Spacing;

View AppearanceModeButton::body() const {
  return PlainButton(content(), select).help(label).accessibilitySelected(isSelected);
}

View AppearanceModeButton::content() const {
  return VStack(
             {.spacing = points(Spacing::s4)},
             {
                 thumbnail()
                     .frame(FixedFrame{.width = 93, .height = 56})
                     .modifier(CornerRadius{.radius = kCornerHigh})
                     .modifier(RoundedBorder{.borderStyle = RoundedBorderStyle::line,
                                             .cornerRadius = kCornerHigh,
                                             .borderColor = isSelected ? Color::accent() : klear(),
                                             .lineWidth = 2}),
                 Text(label)
                     .font(Font::caption())
                     .foreground(isSelected ? Color::accent() : Color::secondary()),
             })
      .padding(Edges::horizontal, Spacing::s6)
      .padding(Edges::top, Spacing::s5)
      .padding(Edges::bottom, Spacing::s4)
      .background(RoundedRectangle(kCornerHigh, CornerStyle::continuous)
                      .fill(hovering ? Color::primary().withOpacity(0.06) : klear()))
      .onHover([self = *this](bool inside) { self.hovering.set(inside); });
}

View AppearanceModeButton::thumbnail() const {
  const auto light = [] { return View(Image::named("QEVAquaIcon").resizable().scaledToFill()); };
  const auto dark = [] { return View(Image::named("QEVAquaDarkIcon").resizable().scaledToFill()); };
  switch (mode) {
    case AppearanceMode::light: return light();
    case AppearanceMode::dark: return dark();
    case AppearanceMode::automatic: break;
  }
  return ZStack(Alignment::centered(),
                {
                    light(),
                    dark()
                        .frame(FixedFrame{.width = 93, .height = 56})
                        .frame(FixedFrame{.width = 46.5, .alignment = Alignment::trailing()})
                        .clipped()
                        .frame(FixedFrame{.width = 93, .alignment = Alignment::trailing()}),
                });
}

}  // namespace QEVSettings
