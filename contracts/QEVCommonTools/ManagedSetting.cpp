// SPDX-License-Identifier: MIT
#include "QEVCommonTools/ManagedSetting.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "QEVCommonTools/localized.hpp"
#include "viewkit/Image.hpp"
#include "viewkit/Stacks.hpp"

namespace QEVCommonTools {

using namespace viewkit;

std::string managedText() { return localized("Managed by your organization"); }

View managedMark() {
  return Image::symbol("lock.fill")
      .resizable()
      .scaledToFit()
      .frame(FixedFrame{.width = 12, .height = 12})
      .foreground(Color::secondary())
      .accessibilityRole(Role::image)
      .accessibilityLabel(managedText())
      .help(managedText());
}

View managed(const View& control, bool isManaged) {
  if (!isManaged) return control;
  return HStack({.spacing = points(Spacing::s4)}, {managedMark(), control.disabled(true)});
}

}  // namespace QEVCommonTools
