// SPDX-License-Identifier: MIT
#include "QEVSettings/ProxySettingsView.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "rows/SettingsSectionHeader.hpp"
#include "viewkit/Stacks.hpp"

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

View proxySettingsPage(const View& form) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
                {
                    SettingsSectionHeader{.titleKey = "QEV MITM Proxy",
                                          .systemImage = "network.badge.shield.half.filled"},
                    form,
                    Spacer(points(Spacing::s0)),
                })
      .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::topLeading()});
}

}  // namespace QEVSettings
