// SPDX-License-Identifier: MIT
#include "rows/SettingRow.hpp"

#include "QEVCommonTools/RectCorner.hpp"
#include "QEVSettings/SettingsNavigation.hpp"
#include "rows/MarkedRow.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Shape.hpp"

#include <algorithm>
#include <utility>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::kCornerLow;

namespace {

constexpr double kTintOpacity = 0.16;
constexpr double kTintBorder = 2;
// Beyond the row on each side, in points.
constexpr double kTintOutset = 3;

View tint() {
  return RoundedRectangle(kCornerLow, CornerStyle::continuous)
      .fill(Color::accent().withOpacity(kTintOpacity))
      .border(Color::accent(), kTintBorder)
      .padding(-kTintOutset);
}

struct SettingRow {
  std::vector<std::string> keys;
  View row;
  ObservedObject<SettingsNavigation> navigation;

  View body() const {
    const bool isShown = std::ranges::find(keys, navigation->highlightedKey()) != keys.end();
    View content = markedRow(keys, row).overlay(isShown ? tint() : View());
    for (const std::string& key : keys) content = content.id(SettingsNavigation::rowId(key));
    return content;
  }
};

}  // namespace

View settingRow(std::vector<std::string> keys, const View& row) {
  auto navigation = Environment::current().object<SettingsNavigation>();
  if (!navigation || keys.empty()) return markedRow(std::move(keys), row);
  return SettingRow{.keys = std::move(keys), .row = row, .navigation = std::move(navigation)};
}

}  // namespace QEVSettings
