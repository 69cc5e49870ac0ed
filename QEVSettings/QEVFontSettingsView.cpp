#include "QEVFontSettingsView.hpp"

#include "FontDescription.hpp"
#include "QEVCommonTools/FontPicker.hpp"
#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVCommonTools/RectCorner.hpp"
#include "QEVCommonTools/Spacing.hpp"
#include "SettingsIconRow.hpp"
#include "SettingsSectionHeader.hpp"
#include "resource_bundle_accessor.hpp"
#include "viewkit/Animation.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/GroupBox.hpp"
#include "viewkit/Stacks.hpp"
#include "viewkit/Text.hpp"

#include <string>
#include <utility>
#include <vector>

namespace QEVSettings {

using namespace viewkit;
using QEVCommonTools::cornerRadius;
using QEVCommonTools::FontPicker;
using QEVCommonTools::FontPreferences;
using QEVCommonTools::kCornerLow;
using QEVCommonTools::points;
using QEVCommonTools::RectCorner;
using QEVCommonTools::Spacing;

namespace {

using FontBinding = Binding<appkit::Font>;
using DescriptionBinding = Binding<std::optional<std::string>>;
using Getter = appkit::Font (FontPreferences::*)() const;
using Setter = void (FontPreferences::*)(const appkit::Font&) const;

FontPreferences preferences() { return FontPreferences(Environment::current().defaultStore); }

FontBinding fontBinding(Getter getter, Setter setter, const DescriptionBinding& description) {
  return {[fonts = preferences(), getter] { return (fonts.*getter)(); },
          [fonts = preferences(), setter, description](const appkit::Font& font) {
            (fonts.*setter)(font);
            description.set(fontDescription(font));
          }};
}

FontBinding animated(const FontBinding& binding) {
  return {[binding] { return binding.get(); },
          [binding](const appkit::Font& font) { withAnimation([&] { binding.set(font); }); }};
}

struct FontRow {
  std::string label;
  SymbolName symbol;
  DescriptionBinding description;
  FontBinding font;
  bool warnsOfProportionalFont = false;
  // Of all rows: the column is as wide as the longest.
  std::vector<std::string> allLabels = {};

  View body() const {
    return SettingsIconRow{.symbol = symbol,
                           .alignment = VerticalAlignment::center,
                           .iconSize = 15,
                           .leadingInset = false,
                           .content = [self = *this] { return self.content(); }};
  }

  View content() const {
    return HStack({.spacing = points(Spacing::s5)}, {
                                                        labelColumn(),
                                                        preview(),
                                                        FontPicker{.title = "", .selection = font}.body().help(label),
                                                    });
  }

  // Which label is the longest only the person's font decides.
  View labelColumn() const {
    const auto identify = [](const std::string& each) { return each; };
    const auto widen = [](const std::string& each) { return Text(each).opacity(0).accessibilityRole(Role::none); };
    return ZStack(Alignment::leading(),
                  {
                      forEach(allLabels, identify, widen),
                      Text(label),
                  })
        .font(Font::body())
        .fixedSize()
        .frame(FlexibleFrame{.minWidth = 160, .alignment = Alignment::leading()});
  }

  View preview() const {
    const appkit::Font shown = font.get();
    return cornerRadius(VStack({.spacing = 0},
                               {
                                   Text(description.get().value_or(""))
                                       .font(Font::of(shown))
                                       .lineLimit(1)
                                       .truncation(Truncation::middle)
                                       .fixedSize(false, true)
                                       .padding(points(Spacing::s5)),
                                   warnsOfProportionalFont && !shown.isFixedPitch() ? monospaceWarning() : View(),
                               })
                            .frame(FlexibleFrame{.minWidth = 130, .maxWidth = kUnlimited})
                            .background(Color::controlBackground()),
                        kCornerLow, RectCorner::allCorners);
  }

  static View monospaceWarning() {
    return Text(localized("Not a monospaced font. Consider using a monospaced font."))
        .font(Font::caption2())
        .truncation(Truncation::middle)
        .foreground(Color::systemRed())
        .fixedSize(false, true)
        .padding(Edges::bottom, points(Spacing::s4));
  }
};

}  // namespace

QEVFontSettingsView::QEVFontSettingsView()
    : packetTableFontDescription_(fontDescription(preferences().com_velloquin_zorvantine_fontPacketTable())),
      consoleFontDescription_(fontDescription(preferences().com_velloquin_zorvantine_fontConsoleRaw())),
      protocolDetailsFontDescription_(fontDescription(preferences().com_velloquin_zorvantine_fontProtocolDetails())),
      statisticsFontDescription_(fontDescription(preferences().com_velloquin_zorvantine_fontBaseProtocolStatistics())),
      dataSourcesHeadFontDescription_(fontDescription(preferences().com_velloquin_zorvantine_fontDataSourcesHead())),
      dataSourcesListFontDescription_(fontDescription(preferences().com_velloquin_zorvantine_fontDataSourcesList())) {}

View QEVFontSettingsView::body() const {
  const auto packetTable = packetTableFontDescription_.binding();
  const auto console = consoleFontDescription_.binding();
  const auto protocolDetails = protocolDetailsFontDescription_.binding();
  const auto statistics = statisticsFontDescription_.binding();
  const auto dataSourcesList = dataSourcesListFontDescription_.binding();
  const auto dataSourcesHead = dataSourcesHeadFontDescription_.binding();

  std::vector<FontRow> rows{
      FontRow{.label = localized("Packets List Font:"),
              .symbol = "list.bullet.rectangle",
              .description = packetTable,
              .font = fontBinding(&FontPreferences::com_velloquin_zorvantine_fontPacketTable,
                                  &FontPreferences::setCom_velloquin_zorvantine_fontPacketTable, packetTable)},
      FontRow{.label = localized("Console Font:"),
              .symbol = "terminal",
              .description = console,
              .font = animated(fontBinding(&FontPreferences::com_velloquin_zorvantine_fontConsoleRaw,
                                           &FontPreferences::setCom_velloquin_zorvantine_fontConsoleRaw, console)),
              .warnsOfProportionalFont = true},
      FontRow{.label = localized("Protocol Details:"),
              .symbol = "rectangle.split.3x1",
              .description = protocolDetails,
              .font = fontBinding(&FontPreferences::com_velloquin_zorvantine_fontProtocolDetails,
                                  &FontPreferences::setCom_velloquin_zorvantine_fontProtocolDetails, protocolDetails)},
      FontRow{
          .label = localized("Protocol Statistics Font:"),
          .symbol = "chart.bar.xaxis",
          .description = statistics,
          .font = fontBinding(&FontPreferences::com_velloquin_zorvantine_fontBaseProtocolStatistics,
                              &FontPreferences::setCom_velloquin_zorvantine_fontBaseProtocolStatistics, statistics)},
      FontRow{.label = localized("Data Sources List Font:"),
              .symbol = "sidebar.left",
              .description = dataSourcesList,
              .font = fontBinding(&FontPreferences::com_velloquin_zorvantine_fontDataSourcesList,
                                  &FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesList, dataSourcesList)},
      FontRow{.label = localized("Data Sources Header Font:"),
              .symbol = "tablecells",
              .description = dataSourcesHead,
              .font = fontBinding(&FontPreferences::com_velloquin_zorvantine_fontDataSourcesHead,
                                  &FontPreferences::setCom_velloquin_zorvantine_fontDataSourcesHead, dataSourcesHead)},
  };
  std::vector<std::string> labels;
  for (const FontRow& row : rows) labels.push_back(row.label);
  for (FontRow& row : rows) row.allLabels = labels;

  return GroupBox{
      VStack({.alignment = HorizontalAlignment::leading, .spacing = points(Spacing::s5)},
             {
                 SettingsSectionHeader{.titleKey = "Interface Fonts", .systemImage = "character.magnify"},
                 forEach(
                     rows, [](const FontRow& row) { return row.label; }, [](const FontRow& row) { return row; }),
             })
          .padding(points(Spacing::s6))
          .frame(FlexibleFrame{.maxWidth = kUnlimited, .alignment = Alignment::topLeading()})};
}

}  // namespace QEVSettings
