// SPDX-License-Identifier: MIT
#include "window/StorageNotice.hpp"

#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Shape.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <string>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::kCornerMed;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

constexpr double kIconSize = 16;
constexpr double kFillOpacity = 0.12;
constexpr double kBorderOpacity = 0.6;

View bar(SymbolName symbol, Color color, const std::string& text, const View& button) {
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
                        .id(text)
                        .frame(FlexibleFrame{.maxWidth = kUnlimited,
                                             .alignment = Alignment::leading()}),
                    button,
                })
      .padding(Spacing::s6)
      .background(RoundedRectangle(kCornerMed)
                      .fill(color.withOpacity(kFillOpacity))
                      .border(color.withOpacity(kBorderOpacity), 1));
}

}  // namespace

View StorageNotice::body() const {
  const auto problem = notices->problem();
  const auto recovery = notices->recovery();
  const auto dismiss = [self = *this] { self.notices->dismissRecovery(); };

  return VStack(
      {.spacing = points(Spacing::s5)},
      {
          problem ? bar("exclamationmark.triangle.fill", Color::systemRed(), *problem, View())
                  : View(),
          recovery ? bar("info.circle.fill", Color::accent(), *recovery,
                         Button(localized("Dismiss"), dismiss))
                   : View(),
      });
}

}  // namespace QEVSettings
