// SPDX-License-Identifier: MIT
#include "rows/SettingsSectionHeader.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View SettingsSectionHeader::body() const {
  return HStack({.spacing = points(Spacing::s5)},
                {
                    Image::symbol(systemImage)
                        .resizable()
                        .scaledToFit()
                        .frame(FixedFrame{.width = 20, .height = 20})
                        .foreground(Color::accent()),
                    Text(localized(titleKey))
                        .font(Font::caption().semibold())
                        .uppercased()
                        .foreground(Color::accent())
                        .accessibilityRole(Role::heading),
                });
}

}  // namespace QEVSettings
