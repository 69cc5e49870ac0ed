// SPDX-License-Identifier: MIT
#include "analyzers/options/CompactAnalyzerOptionsView.hpp"

#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVKonstantsKeys/NSColor.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "analyzers/AnalyzerError.hpp"
#include "analyzers/options/AnalyzerOption.hpp"
#include "analyzers/options/analyzerOptionStyles.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/OptionRow.hpp"
#include "rows/SettingRow.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/ErrorBoundary.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/Text.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::colorFromRawValue;
using QEVCommonTools::managed;
using QEVCommonTools::points;
using QEVCommonTools::rawValue;
using QEVCommonTools::Spacing;
using QEVDependencies::AnalyzerColorSpec;
using QEVDependencies::AnalyzerToggleSpec;
using QEVKonstantsKeys::NSColor;

namespace {

Binding<bool> booleanBinding(const StoredPreference<AnalyzerOption>& option) {
  return {[binding = option.binding()] { return binding.get().isOn; },
          [binding = option.binding()](bool isOn) { binding.set({isOn}); }};
}

// Each reading of what is no colour is another random one, and none of them is stored.
Binding<appkit::RGBA> colorBinding(const StoredPreference<std::string>& color) {
  return {
      [binding = color.binding()] {
        return colorFromRawValue(binding.get()).value_or(NSColor::random());
      },
      [binding = color.binding()](const appkit::RGBA& chosen) { binding.set(rawValue(chosen)); }};
}

View optionLabel(const std::string& label, const Binding<bool>& isOn, bool isLocked) {
  return HStack({.spacing = points(Spacing::s5)},
                {
                    Text(label),
                    Spacer(points(Spacing::s5)),
                })
      .onTap([isOn, isLocked] {
        if (!isLocked) isOn.set(!isOn.get());
      });
}

struct ColoringRow {
  StoredPreference<std::string> color;
  StoredPreference<AnalyzerOption> usesColor;

  View body() const {
    const std::string label = localized("Packet coloring");
    const Binding<bool> isOn = booleanBinding(usesColor);
    const bool isLocked = usesColor.isLocked();
    const View well = ColorWell(colorBinding(color),
                                {.supportsOpacity = true,
                                 .checkpoint = [color = color] { return color.checkpoint(); }})
                          .help(label);

    return OptionRow{
        .symbol = "swatchpalette",
        .alignment = VerticalAlignment::center,
        .content = HStack(
            {.spacing = points(Spacing::s5)},
            {
                optionLabel(label, isOn, isLocked),
                managed(well, color.isLocked()),
                managed(
                    Toggle(isOn, ToggleControl::Size::small).accessibilityLabel(label).help(label),
                    isLocked),
            })};
  }
};

struct ToggleRow {
  std::string labelKey;
  StoredPreference<AnalyzerOption> option;

  View body() const {
    const std::string label = localized(labelKey);
    const Binding<bool> isOn = booleanBinding(option);
    const bool isLocked = option.isLocked();

    return OptionRow{
        .symbol = optionStyle(labelKey).symbol,
        .alignment = VerticalAlignment::center,
        .content = HStack(
            {.spacing = points(Spacing::s5)},
            {
                optionLabel(label, isOn, isLocked),
                managed(
                    Toggle(isOn, ToggleControl::Size::small).accessibilityLabel(label).help(label),
                    isLocked),
            })};
  }
};

View coloringRow(const AnalyzerColorSpec& spec) {
  return settingRow(
      {spec.usesColorKey, spec.colorKey},
      ColoringRow{.color = {spec.colorKey, std::string()},
                  .usesColor = {spec.usesColorKey, AnalyzerOption{kUsesColorDefault}}});
}

View toggleRow(const AnalyzerToggleSpec& spec) {
  return settingRow({spec.defaultsKey},
                    ToggleRow{.labelKey = spec.labelKey,
                              .option = {spec.defaultsKey, AnalyzerOption{spec.defaultValue}}});
}

}  // namespace

View CompactAnalyzerOptionsView::body() const {
  return VStack(
      {.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
      {
          config.color ? coloringRow(*config.color) : View(),
          forEach(
              sortedToggles(), [](const AnalyzerToggleSpec& spec) { return spec.id; }, toggleRow),
          config.extraContent ? extraContent() : View(),
      });
}

View CompactAnalyzerOptionsView::extraContent() const {
  View content;
  const auto failure = failureOf([&] { content = config.extraContent(); });
  return failure ? analyzerErrorText(*failure) : errorBoundary(content, analyzerErrorView);
}

std::vector<AnalyzerToggleSpec> CompactAnalyzerOptionsView::sortedToggles() const {
  std::vector<AnalyzerToggleSpec> toggles = config.toggles;
  std::ranges::stable_sort(
      toggles, {}, [](const AnalyzerToggleSpec& spec) { return optionStyle(spec.labelKey).order; });
  return toggles;
}

}  // namespace QEVSettings
