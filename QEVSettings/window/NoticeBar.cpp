// SPDX-License-Identifier: MIT
#include "window/NoticeBar.hpp"

#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::kCornerMed;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

constexpr double kIconSize = 16;
constexpr double kFillOpacity = 0.12;
constexpr double kBorderOpacity = 0.6;

}  // namespace

View NoticeBar::body() const {
  return HStack({.spacing = points(Spacing::s6)},
                {
                    Image::symbol(symbol)
                        .resizable()
                        .scaledToFit()
                        .frame(FixedFrame{.width = kIconSize, .height = kIconSize})
                        .foreground(color),
                    // A new text is a new view, because assistive technology announces an alert
                    // when it appears.
                    Text(text)
                        .font(Font::callout())
                        .fixedSize(false, true)
                        .accessibilityRole(Role::alert)
                        .id(id)
                        .frame(FlexibleFrame{.maxWidth = kUnlimited,
                                             .alignment = Alignment::leading()}),
                    buttons,
                })
      .padding(Spacing::s6)
      .background(RoundedRectangle(kCornerMed)
                      .fill(color.withOpacity(kFillOpacity))
                      .border(color.withOpacity(kBorderOpacity), 1));
}

}  // namespace QEVSettings
