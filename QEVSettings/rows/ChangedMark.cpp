// SPDX-License-Identifier: MIT
#include "rows/ChangedMark.hpp"

#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Shape.hpp"

#include <string>

namespace QEVSettings {

using namespace viewkit;

namespace {

constexpr double kDiameter = 6;
constexpr double kGap = 2;

}  // namespace

View changedMark() {
  const std::string text = localized("Changed from the default");
  return RoundedRectangle(kDiameter / 2)
      .fill(Color::accent())
      .frame(FixedFrame{.width = kDiameter, .height = kDiameter})
      .accessibilityRole(Role::image)
      .accessibilityLabel(text)
      .help(text)
      .padding(Edges::trailing, kGap)
      // The dot lies outside of this frame, before its leading edge.
      .frame(FixedFrame{.width = 0, .alignment = Alignment::trailing()});
}

}  // namespace QEVSettings
