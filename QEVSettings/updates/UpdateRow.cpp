// SPDX-License-Identifier: MIT
#include "updates/UpdateRow.hpp"

#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/SettingsIconRow.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::managed;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View UpdateRow::body() const {
  const bool isManaged = stored.isLocked();
  const auto content = [self = *this, isManaged] {
    const std::string text = localized(self.textKey);
    const auto click = [self, isManaged] {
      if (self.isEnabled && !isManaged) self.isOn.set(!self.isOn.get());
    };

    return HStack(
        {.spacing = points(Spacing::s5)},
        {
            HStack({.spacing = points(Spacing::s5)},
                   {
                       Text(text)
                           .font(Font::callout())
                           .foreground(self.isEnabled ? Color::primary() : Color::secondary()),
                       Spacer(points(Spacing::s5)),
                   })
                .onTap(click),
            managed(Toggle(self.isOn, ToggleControl::Size::small)
                        .help(text)
                        .disabled(!self.isEnabled)
                        .onChange<bool>(self.isOn.get(), self.onChange),
                    isManaged),
        });
  };

  return SettingsIconRow{.symbol = symbol,
                         .alignment = VerticalAlignment::center,
                         .iconSize = 15,
                         .leadingInset = true,
                         .content = content};
}

}  // namespace QEVSettings
