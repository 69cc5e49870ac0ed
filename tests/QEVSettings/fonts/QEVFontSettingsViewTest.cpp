// SPDX-License-Identifier: MIT
#include "QEVCommonTools/FontPreferences.hpp"
#include "QEVSettings/fonts/QEVFontSettingsView.hpp"
#include "SettingsWindowTest.hpp"
#include "headless/Description.hpp"
#include "headless/Metrics.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace QEVSettings {
namespace {

using QEVCommonTools::FontPreferences;
using viewkit::Role;

constexpr const char* kWarning = "Not a monospaced font. Consider using a monospaced font.";
constexpr const char* kConsoleLabel = "Console Font:";

const appkit::Font kProportional{.family = "Serif", .style = "Italic", .pointSize = 12.5};
const appkit::Font kMonospaced{.family = "Test Mono", .style = "", .pointSize = 13};

struct FontRow {
  const char* label;
  std::string_view key;
};

constexpr std::array kRows{
    FontRow{"Packets List Font:", kFontPacketTable.name},
    FontRow{kConsoleLabel, kFontConsoleRaw.name},
    FontRow{"Protocol Details:", kFontProtocolDetails.name},
    FontRow{"Protocol Statistics Font:", kFontBaseProtocolStatistics.name},
    FontRow{"Data Sources List Font:", kFontDataSourcesList.name},
    FontRow{"Data Sources Header Font:", kFontDataSourcesHead.name},
};

class QEVFontSettingsViewTest : public SettingsWindowTest {};

TEST_F(QEVFontSettingsViewTest, StoresAChoiceUnderItsRowsKeyAndShowsItThere) {
  for (const FontRow& row : kRows) {
    SCOPED_TRACE(row.label);
    store.forget();
    headless::Window& window = open(Tabs::appearance);
    ASSERT_TRUE(window.choose(window.find(Role::fontPicker, row.label), kProportional));

    ASSERT_EQ(store.changes().size(), 1U);
    EXPECT_EQ(store.changes().front().key, row.key);
    const auto sample = window.findText("Serif Italic 12.5");
    ASSERT_TRUE(sample.exists()) << sample.problem();
    EXPECT_EQ(std::get<viewkit::TextVisual>(sample.content().content).font.chosen(), kProportional);
    EXPECT_EQ(window.findText(kWarning).exists(), row.label == kConsoleLabel);
    store.underneath().removeObject(row.key);
  }
}

TEST_F(QEVFontSettingsViewTest, WarnsAboutTheConsoleUntilItsFontIsMonospaced) {
  FontPreferences(store.underneath()).setCom_velloquin_zorvantine_fontConsoleRaw(kProportional);
  headless::Window& window = open(Tabs::appearance);
  EXPECT_TRUE(window.findText(kWarning).exists());

  window.choose(window.find(Role::fontPicker, kConsoleLabel), kMonospaced);
  EXPECT_FALSE(window.findText(kWarning).exists());
  EXPECT_TRUE(window.findText("Test Mono 13.0").exists());
}

TEST_F(QEVFontSettingsViewTest, KeepsItsSamplesWhenAFontChangesElsewhere) {
  headless::Window& window = open(Tabs::appearance);
  FontPreferences(store.underneath()).setCom_velloquin_zorvantine_fontConsoleRaw(kMonospaced);
  window.settle();
  EXPECT_FALSE(window.findText("Test Mono 13.0").exists());
  EXPECT_TRUE(open(Tabs::appearance).findText("Test Mono 13.0").exists());
}

TEST_F(QEVFontSettingsViewTest, PickerFollowsTheStoreWhileThePreviewStays) {
  headless::Window& window = open(Tabs::appearance);
  const auto picker = window.find(Role::fontPicker, kConsoleLabel);
  const auto previewOfConsole = [&] {
    const auto texts = window.findAll(Role::text);
    const auto label = std::ranges::find(texts, kConsoleLabel, &headless::Element::label);
    return std::get<viewkit::TextVisual>(std::next(label)->content().content);
  };
  const auto before = previewOfConsole();
  FontPreferences(store.underneath()).setCom_velloquin_zorvantine_fontConsoleRaw(kProportional);
  const auto& control = std::get<viewkit::FontPickerControl>(*picker.content().control());
  EXPECT_EQ(control.read(), kProportional)
      << "a chooser that opens before the window is up to date";

  window.settle();
  EXPECT_EQ(std::get<viewkit::FontPickerControl>(*picker.content().control()).font, kProportional);
  EXPECT_EQ(picker.value(), "Serif Italic");
  window.hover(window.find(Role::text, kConsoleLabel));
  EXPECT_EQ(previewOfConsole(), before) << "a hover shows the row anew, but not another font";
  EXPECT_FALSE(window.findText(kWarning).exists());
}

TEST_F(QEVFontSettingsViewTest, FontThatCannotBeStoredChangesNothing) {
  headless::Window& window = open(Tabs::appearance);
  const std::string before = headless::textDescription(window.describe());
  for (const appkit::Font& font :
       {appkit::Font{.family = "", .style = "", .pointSize = 12},
        appkit::Font{.family = "Serif", .style = "", .pointSize = 0},
        appkit::Font{.family = "Serif", .style = "", .pointSize = 1000.5}}) {
    window.choose(window.find(Role::fontPicker, kConsoleLabel), font);
  }
  EXPECT_THAT(store.changes(), testing::IsEmpty());
  EXPECT_EQ(headless::textDescription(window.describe()), before);
}

TEST_F(QEVFontSettingsViewTest, ShortensALongNameInItsMiddle) {
  FontPreferences(store.underneath())
      .setCom_velloquin_zorvantine_fontPacketTable(
          {.family = std::string(200, 'W'), .style = "", .pointSize = 10});
  const headless::Window& window = open(Tabs::appearance);
  const auto sample = window.findText(std::string(200, 'W') + " 10.0");
  ASSERT_TRUE(sample.exists()) << sample.problem();
  EXPECT_EQ(std::get<viewkit::TextVisual>(sample.content().content).truncation,
            viewkit::Truncation::middle);
  EXPECT_LE(sample.frame().maxX(),
            window.find(Role::fontPicker, "Packets List Font:").frame().origin.x);
}

// A row's content is a stack of label, preview and picker.
void collectLabelColumns(const viewkit::NodeDescription& node,
                         std::vector<const viewkit::NodeDescription*>& columns) {
  if (node.kind == "HStack" && node.children.size() == 3) columns.push_back(&node.children.front());
  for (const auto& child : node.children) collectLabelColumns(child, columns);
}

TEST_F(QEVFontSettingsViewTest, LabelColumnIsWiderThan160OnlyWhereALabelDoesNotFit) {
  for (const bool isLarge : {false, true}) {
    const headless::Metrics metrics(isLarge ? 30 : 10);
    viewkit::ViewHost host(QEVFontSettingsView(), {.defaultStore = store}, metrics);
    host.setSize({1200, 900});
    host.update();
    const auto page = host.describe();
    std::vector<const viewkit::NodeDescription*> columns;
    collectLabelColumns(page, columns);
    ASSERT_EQ(columns.size(), kRows.size());
    double widest = 0;
    for (const auto* column : columns) {
      ASSERT_EQ(column->children.size(), 1U) << "no other label is laid out there";
      widest = std::max(widest, column->children.front().frame.size.width);
    }
    for (const auto* column : columns) EXPECT_EQ(column->frame.size.width, isLarge ? widest : 160);
    EXPECT_EQ(widest > 160, isLarge);
  }
}

TEST_F(QEVFontSettingsViewTest, TintsTheRowUnderThePointer) {
  headless::Window& window = open(Tabs::appearance);
  EXPECT_THAT(tints(window), testing::IsEmpty());

  const auto label = window.find(Role::text, kConsoleLabel);
  window.hover(label);
  ASSERT_EQ(tints(window).size(), 1U);
  EXPECT_TRUE(tints(window).front().contains(label.frame().origin));

  window.hover(window.find(Role::text, "Protocol Details:"));
  ASSERT_EQ(tints(window).size(), 1U);
  EXPECT_FALSE(tints(window).front().contains(label.frame().origin));

  window.pointerLeft();
  EXPECT_THAT(tints(window), testing::IsEmpty());
}

}  // namespace
}  // namespace QEVSettings
