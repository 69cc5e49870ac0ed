// SPDX-License-Identifier: MIT
#include "rows/SettingExplanation.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "QEVSettings/settingName.hpp"
#include "QEVSettings/settingText.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "viewkit/Grid.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <cstddef>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

// A list of many protocols does not make the popover higher than the window.
constexpr std::size_t kLongestDefault = 200;

GridRow detail(const std::string& label, const std::string& text) {
  return {.cells = {
              Text(label).font(Font::callout()).foreground(Color::secondary()),
              Text(text).font(Font::callout()).fixedSize(false, true),
          }};
}

View explanation(const SettingExplanation& setting) {
  std::vector<GridRow> details;
  details.push_back(detail(localized("Key"), setting.key));
  if (!setting.standard.empty()) details.push_back(detail(localized("Default"), setting.standard));
  details.push_back(detail(localized("Origin"), setting.origin));
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
      {
          Text(setting.title).font(Font::body().semibold()).accessibilityRole(Role::heading),
          // Spoken when the popover opens, because nothing in it takes the keyboard.
          Text(setting.purpose).fixedSize(false, true).accessibilityRole(Role::alert),
          Grid({.horizontalAlignment = HorizontalAlignment::leading,
                .verticalAlignment = VerticalAlignment::firstTextBaseline,
                .horizontalSpacing = points(Spacing::s6),
                .verticalSpacing = points(Spacing::s3)},
               std::move(details)),
      });
}

}  // namespace

SettingExplanation::SettingExplanation(const PreferenceDescriptor& descriptor,
                                       const PreferencesStore& store)
    : title(settingName(descriptor)),
      purpose(settingText(descriptor.purpose)),
      key(descriptor.key),
      standard(firstCharacters(defaultText(descriptor), kLongestDefault)),
      origin(originText(store, descriptor.key)) {}

View explanationView(const std::vector<SettingExplanation>& settings) {
  return VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s7)},
                {
                    forEach(
                        settings, [](const SettingExplanation& each) { return each.key; },
                        explanation),
                })
      .padding(Spacing::s7);
}

}  // namespace QEVSettings
