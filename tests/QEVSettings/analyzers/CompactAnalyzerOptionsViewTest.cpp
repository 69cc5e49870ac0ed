// SPDX-License-Identifier: MIT
#include "AnalyzerWindowTest.hpp"
#include "QEVCommonTools/ColorRawValue.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

namespace QEVSettings {
namespace {

using support::wrote;
using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;

constexpr const char* kColorKey = "com_velloquin_qev_test_color";
constexpr const char* kUsesColorKey = "com_velloquin_qev_test_usesColor";
constexpr const char* kColoring = "Packet coloring";
constexpr appkit::RGBA kChosen{.red = 0.1, .green = 0.2, .blue = 0.3, .opacity = 0.4};

class CompactAnalyzerOptionsViewTest : public AnalyzerWindowTest {
protected:
  // The window, with nothing recorded of its opening.
  headless::Window& show(const QEVDependencies::AnalyzerSettingsConfig& config) {
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config = config;
    load("Test", preferences);
    headless::Window& window = open();
    store.forget();
    return window;
  }
};

std::string symbolBefore(const headless::Window& window, const std::string& label) {
  const viewkit::Rect row = window.findText(label).frame();
  std::string symbol;
  const std::function<void(const viewkit::PresentationNode&)> look =
      [&](const viewkit::PresentationNode& node) {
        const auto* visual = std::get_if<viewkit::SymbolVisual>(&node.content);
        const viewkit::Rect frame = node.frameInWindow();
        const double middle = frame.origin.y + frame.size.height / 2;
        if (visual && frame.maxX() <= row.origin.x && middle > row.origin.y &&
            middle < row.maxY()) {
          symbol = visual->name.text();
        }
        for (const auto* child : node.children) look(*child);
      };
  look(window.host().presentation());
  return symbol;
}

TEST_F(CompactAnalyzerOptionsViewTest, OrdersKnownOptionsFirstAndGivesEachItsIcon) {
  const headless::Window& window =
      show({.toggles = {
                {.id = "1", .defaultsKey = "k1", .labelKey = "Enable HTTP/2 Detection"},
                {.id = "2", .defaultsKey = "k2", .labelKey = "Zeta of the plug-in"},
                {.id = "3", .defaultsKey = "k3", .labelKey = "Alpha of the plug-in"},
                {.id = "4", .defaultsKey = "k4", .labelKey = "Compute checksums"},
            }});
  std::vector<std::string> labels;
  std::vector<std::string> symbols;
  for (const auto& toggle : window.findAll(Role::toggle)) {
    labels.push_back(toggle.label());
    symbols.push_back(symbolBefore(window, toggle.label()));
  }
  EXPECT_THAT(labels, ElementsAre("Compute checksums", "Enable HTTP/2 Detection",
                                  "Zeta of the plug-in", "Alpha of the plug-in"));
  EXPECT_THAT(symbols,
              ElementsAre("checkmark.seal", "bolt", "slider.horizontal.3", "slider.horizontal.3"));
}

TEST_F(CompactAnalyzerOptionsViewTest, TakesTheStoredValueBeforeTheDefault) {
  store.underneath().setBool(false, "stored off");
  store.underneath().setObject(PreferenceValue::Bytes{1, 2}, "stored nonsense");
  const headless::Window& window = show(
      {.toggles = {
           {.id = "1", .defaultsKey = "absent on", .defaultValue = true, .labelKey = "absent, on"},
           {.id = "2",
            .defaultsKey = "absent off",
            .defaultValue = false,
            .labelKey = "absent, off"},
           {.id = "3",
            .defaultsKey = "stored off",
            .defaultValue = true,
            .labelKey = "stored, off"},
           {.id = "4",
            .defaultsKey = "stored nonsense",
            .defaultValue = true,
            .labelKey = "stored, nonsense"},
       }});
  EXPECT_EQ(window.find(Role::toggle, "absent, on").value(), "on");
  EXPECT_EQ(window.find(Role::toggle, "absent, off").value(), "off");
  EXPECT_EQ(window.find(Role::toggle, "stored, off").value(), "off");
  EXPECT_EQ(window.find(Role::toggle, "stored, nonsense").value(), "off");
  EXPECT_THAT(store.changes(), IsEmpty());
}

TEST_F(CompactAnalyzerOptionsViewTest, FlipsAnOptionByItsSwitchItsTextAndTheSpaceBesideIt) {
  headless::Window& window =
      show({.toggles = {
                {.id = "1", .defaultsKey = "key", .defaultValue = true, .labelKey = "An option"}}});
  const auto toggle = window.find(Role::toggle, "An option");
  const auto text = window.findText("An option");

  window.click(toggle);
  EXPECT_THAT(store.changes(), ElementsAre(wrote("key", false)));
  EXPECT_EQ(toggle.value(), "off");

  window.click(text);
  EXPECT_EQ(toggle.value(), "on");

  const double beside = (text.frame().maxX() + toggle.frame().origin.x) / 2;
  window.click(viewkit::Point{beside, text.frame().origin.y + text.frame().size.height / 2});
  EXPECT_EQ(toggle.value(), "off");

  store.underneath().setBool(true, "key");
  window.settle();
  EXPECT_EQ(toggle.value(), "on") << "a change made elsewhere shows";
}

TEST_F(CompactAnalyzerOptionsViewTest, ShowsARandomColourUntilOneIsChosen) {
  headless::Window& window =
      show({.color = {{.colorKey = kColorKey, .usesColorKey = kUsesColorKey}}});
  const auto well = window.find(Role::colorWell, kColoring);
  const auto toggle = window.find(Role::toggle, kColoring);
  EXPECT_TRUE(std::get<viewkit::ColorWellControl>(*well.content().control()).supportsOpacity);
  EXPECT_EQ(toggle.value(), "off");

  const std::string before = well.value();
  store.underneath().setObject("no colour", kColorKey);
  window.settle();
  EXPECT_NE(well.value(), before) << "each reading draws a new one";
  EXPECT_THAT(store.changes(), IsEmpty());

  window.choose(well, kChosen);
  EXPECT_THAT(store.changes(), ElementsAre(wrote(kColorKey, QEVCommonTools::rawValue(kChosen))));
  EXPECT_EQ(std::get<viewkit::ColorWellControl>(*well.content().control()).color, kChosen);

  store.forget();
  window.click(window.findText(kColoring));
  EXPECT_THAT(store.changes(), ElementsAre(wrote(kUsesColorKey, true)));
}

TEST_F(CompactAnalyzerOptionsViewTest, PlacesThePluginsOwnControlsLast) {
  const headless::Window& window =
      show({.toggles = {{.id = "1", .defaultsKey = "key", .labelKey = "An option"}},
            .extraContent = [] { return viewkit::Text("the plug-in's own"); }});
  EXPECT_GT(window.findText("the plug-in's own").frame().origin.y,
            window.findText("An option").frame().maxY());
  EXPECT_FALSE(window.find(Role::colorWell).exists());
}

TEST_F(CompactAnalyzerOptionsViewTest, TintsTheRowUnderThePointer) {
  headless::Window& window =
      show({.toggles = {{.id = "1", .defaultsKey = "key", .labelKey = "An option"}}});
  window.hover(window.find(Role::toggle, "An option"));
  EXPECT_EQ(tints(window).size(), 1U);
  window.pointerLeft();
  EXPECT_THAT(tints(window), IsEmpty());
}

}  // namespace
}  // namespace QEVSettings
