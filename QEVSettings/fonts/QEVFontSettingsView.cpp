// SPDX-License-Identifier: MIT
#include "fonts/QEVFontSettingsView.hpp"

#include "QEVCommonTools/FontPicker.hpp"
#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVCommonTools/ManagedSetting.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVSettings/SettingWriter.hpp"
#include "fonts/FontDescription.hpp"
#include "resources/resource_bundle_accessor.hpp"
#include "rows/SettingRow.hpp"
#include "rows/SettingsIconRow.hpp"
#include "rows/SettingsSectionHeader.hpp"
#include "viewkit/Animation.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/GroupBox.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"
#include "viewkit/TextWidth.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <numeric>
#include <string>
#include <string_view>
#include <utility>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::CornerRadius;
using QEVCommonTools::FontPicker;
using QEVCommonTools::FontPreferences;
using QEVCommonTools::kCornerLow;
using QEVCommonTools::managed;
using QEVCommonTools::points;
using QEVCommonTools::Spacing;

namespace {

// One font of the page: its row and its property in the preferences store.
struct FontSetting {
  // The position of the row on the page, from 1.
  int row;
  // A localisation key.
  std::string_view labelKey;
  SymbolName symbol;
  std::string_view key;
  appkit::Font (FontPreferences::*get)() const;
  void (FontPreferences::*set)(const appkit::Font&) const;
  bool warnsOfProportionalFont = false;
};

// In the order in which the page reads the fonts.
constexpr std::array kFontSettings{
    FontSetting{.row = 1,
                .labelKey = "Packets List Font:",
                .symbol = "list.bullet.rectangle",
                .key = QEVKonstantsKeys::kFontPacketTable.name,
                .get = &FontPreferences::com_velloquin_zorvantine_fontPacketTable,
                .set = &FontPreferences::setCom_velloquin_zorvantine_fontPacketTable},
    FontSetting{.row = 2,
                .labelKey = "Console Font:",
                .symbol = "terminal",
                .key = QEVKonstantsKeys::kFontConsoleRaw.name,
                .get = &FontPreferences::com_velloquin_zorvantine_fontConsoleRaw,
                .set = &FontPreferences::setCom_velloquin_zorvantine_fontConsoleRaw,
                .warnsOfProportionalFont = true},
    FontSetting{.row = 3,
                .labelKey = "Protocol Details:",
                .symbol = "rectangle.split.3x1",
                .key = QEVKonstantsKeys::kFontProtocolDetails.name,
                .get = &FontPreferences::com_velloquin_zorvantine_fontProtocolDetails,
                .set = &FontPreferences::setCom_velloquin_zorvantine_fontProtocolDetails},
    FontSetting{.row = 4,
                .labelKey = "Protocol Statistics Font:",
                .symbol = "chart.bar.xaxis",
                .key = QEVKonstantsKeys::kFontBaseProtocolStatistics.name,
                .get = &FontPreferences::com_velloquin_zorvantine_fontBaseProtocolStatistics,
                .set = &FontPreferences::setCom_velloquin_zorvantine_fontBaseProtocolStatistics},
    FontSetting{.row = 6,
                .labelKey = "Data Sources Header Font:",
                .symbol = "tablecells",
                .key = QEVKonstantsKeys::kFontDataSourcesHead.name,
                .get = &FontPreferences::com_velloquin_zorvantine_fontDataSourcesHead,
                .set = &FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesHead},
    FontSetting{.row = 5,
                .labelKey = "Data Sources List Font:",
                .symbol = "sidebar.left",
                .key = QEVKonstantsKeys::kFontDataSourcesList.name,
                .get = &FontPreferences::com_velloquin_zorvantine_fontDataSourcesList,
                .set = &FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesList},
};

// The warning of a proportional font appears and disappears with an animation.
void changeSample(const FontSetting& setting, const std::function<void()>& change) {
  if (setting.warnsOfProportionalFont) {
    withAnimation(change);
  } else {
    change();
  }
}

// The stored font of one row, and the sample in its preview. Announces each change, including those
// of other processes. The sample follows what this window changes, with the row's picker or through
// the window's SettingWriter.
class StoredFont final : public foundation::ObservableObject {
public:
  StoredFont(const Environment& environment, const FontSetting& setting, FontSample sample)
      : store_(environment.defaultStore),
        preferences_(store_),
        setting_(setting),
        sample_(std::move(sample)),
        changed_(store_.observe(setting.key,
                                [this](std::string_view) { objectWillChange().announce(); })) {
    if (const auto writer = environment.object<SettingWriter>())
      written_ = writer->observe(setting.key, [this](std::string_view) { takeSample(); });
  }

  appkit::Font get() const { return (preferences_.*setting_.get)(); }
  void set(const appkit::Font& font) {
    (preferences_.*setting_.set)(font);
    objectWillChange().announce();
    sample_ = FontSample(font);
  }
  const FontSample& sample() const { return sample_; }
  bool isManaged() const { return store_.isLocked(setting_.key); }

private:
  void takeSample() {
    changeSample(setting_, [this] {
      objectWillChange().announce();
      sample_ = FontSample(get());
    });
  }

  PreferencesStore& store_;
  FontPreferences preferences_;
  const FontSetting& setting_;
  FontSample sample_;
  foundation::Subscription changed_;
  foundation::Subscription written_;
};

// Wide enough for every label, in points.
double labelColumnWidth() {
  double width = 160;
  for (const FontSetting& setting : kFontSettings) {
    width = std::max(width, textWidth(localized(setting.labelKey), Font::body()));
  }
  return width;
}

// Up to this size, in points, a preview is shown whole.
constexpr double kLargestWholePreview = 36;
constexpr double kBoundedHeight = 72;

// Cuts the preview of a huge font, which would push the other rows away. It shows the beginning of
// the text, because nothing but the dots of a shortened text might have room.
View bounded(const View& preview) {
  return preview.fixedSize()
      .frame(FlexibleFrame{.minWidth = 0,
                           .maxWidth = kUnlimited,
                           .minHeight = kBoundedHeight,
                           .maxHeight = kBoundedHeight,
                           .alignment = Alignment::leading()})
      .clipped();
}

View monospaceWarning() {
  return Text(localized("Not a monospaced font. Consider using a monospaced font."))
      .font(Font::caption2())
      .truncation(Truncation::middle)
      .foreground(Color::systemRed())
      .fixedSize(false, true)
      .padding(Edges::bottom, Spacing::s4);
}

struct FontRow {
  FontRow(const FontSetting& setting, const FontSample& sample, double labelWidth)
      : setting(setting), labelWidth(labelWidth), stored([&setting, sample] {
          return std::make_shared<StoredFont>(Environment::current(), setting, sample);
        }) {}

  const FontSetting& setting;
  double labelWidth;
  StateObject<StoredFont> stored;

  View body() const {
    return SettingsIconRow{.symbol = setting.symbol,
                           .alignment = VerticalAlignment::center,
                           .iconSize = 15,
                           .leadingInset = false,
                           .content = [self = *this] { return self.content(); }};
  }

  View content() const {
    const std::string label = localized(setting.labelKey);
    return HStack(
        {.spacing = points(Spacing::s5)},
        {
            Text(label)
                .font(Font::body())
                .fixedSize()
                .frame(FixedFrame{.width = labelWidth, .alignment = Alignment::leading()}),
            preview(),
            managed(FontPicker{.title = "", .selection = selection()}.body().help(label),
                    stored->isManaged()),
        });
  }

  View preview() const {
    const auto& [description, font] = stored->sample();
    const bool warns = setting.warnsOfProportionalFont && !font.isFixedPitch();
    const View text = Text(description)
                          .font(Font::of(font))
                          .lineLimit(1)
                          .truncation(Truncation::middle)
                          .fixedSize(false, true)
                          .padding(Spacing::s5);
    return VStack({.spacing = 0},
                  {
                      font.pointSize > kLargestWholePreview ? bounded(text) : text,
                      warns ? monospaceWarning() : View(),
                  })
        .frame(FlexibleFrame{.minWidth = 130, .maxWidth = kUnlimited})
        .background(Color::controlBackground())
        .modifier(CornerRadius{.radius = kCornerLow});
  }

  Binding<appkit::Font> selection() const {
    return {[self = *this] { return self.stored->get(); },
            [self = *this](const appkit::Font& font) {
              changeSample(self.setting, [&] { self.stored->set(font); });
            }};
  }
};

}  // namespace

FontSample::FontSample(const appkit::Font& font) : description(fontDescription(font)), font(font) {}

QEVFontSettingsView::QEVFontSettingsView() {
  const FontPreferences preferences(Environment::current().defaultStore);
  for (const FontSetting& setting : kFontSettings)
    samples_.emplace_back((preferences.*setting.get)());
}

View QEVFontSettingsView::body() const {
  std::array<std::size_t, kFontSettings.size()> order{};
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::sort(order, {}, [](std::size_t i) { return kFontSettings.at(i).row; });
  const double labelWidth = labelColumnWidth();

  return GroupBox{
      VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
             {
                 SettingsSectionHeader{.titleKey = "Interface Fonts",
                                       .systemImage = "character.magnify"},
                 forEach(
                     order, [](std::size_t i) { return std::string(kFontSettings.at(i).key); },
                     [&](std::size_t i) {
                       const FontSetting& setting = kFontSettings.at(i);
                       return settingRow({std::string(setting.key)},
                                         FontRow(setting, samples_.at(i), labelWidth));
                     }),
             })
          .padding(Spacing::s6)
          .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::topLeading()})};
}

}  // namespace QEVSettings
