// SPDX-License-Identifier: MIT
#include "QEVCommonTools/HelpHandler.hpp"
#include "SettingsWindowTest.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

namespace QEVSettings {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;

std::vector<std::string> tabTitles(const headless::Window& window) {
  const auto& tabs =
      std::get<viewkit::TabBarControl>(*window.find(Role::tabList).content().control());
  std::vector<std::string> titles;
  titles.reserve(tabs.items.size());
  for (const auto& item : tabs.items) titles.push_back(item.title);
  return titles;
}

class QEVSettingsViewTest : public SettingsWindowTest {};

TEST_F(QEVSettingsViewTest, ListsTheProxyOnlyWhenTheHostSuppliesIt) {
  EXPECT_THAT(tabTitles(open(Tabs::general)),
              ElementsAre("General", "Capture", "Analyzer", "Fonts"));
  headless::Window& window = open(Tabs::general, viewkit::Text("the host's own page"));
  EXPECT_THAT(tabTitles(window),
              ElementsAre("General", "Capture", "MITM Proxy", "Analyzer", "Fonts"));
  window.selectTab("MITM Proxy");
  EXPECT_TRUE(window.findText("the host's own page").exists());
}

TEST_F(QEVSettingsViewTest, OpensOnTheTabAskedForAndOffersItsHelp) {
  struct Case {
    Tabs tab;
    const char* onThePage;
    const char* inItsHelp;
  };
  for (const Case& each : {
           Case{Tabs::general, "APPEARANCE", "General settings"},
           Case{Tabs::capture, "Promiscuous mode", "Capture settings"},
           Case{Tabs::proxy, "proxy page", "MITM Proxy"},
           Case{Tabs::analyze, "Nothing selected", "Analyzers"},
           Case{Tabs::appearance, "INTERFACE FONTS", "Fonts"},
       }) {
    SCOPED_TRACE(each.onThePage);
    headless::Window& window = open(each.tab, viewkit::Text("proxy page"));
    EXPECT_TRUE(window.findText(each.onThePage).exists());

    window.click(window.find(Role::helpButton));
    EXPECT_TRUE(window.find(Role::popover).findText(each.inItsHelp).exists());
    window.press(headless::Key::escape);
    EXPECT_FALSE(window.find(Role::popover).exists());
  }
}

TEST_F(QEVSettingsViewTest, HelpButtonLeavesItsAnchorToTheHostThatTakesIt) {
  using QEVCommonTools::QEVHelpAnchor;
  std::vector<QEVHelpAnchor> asked;
  bool isTaken = true;
  QEVCommonTools::setHelpHandler([&](QEVHelpAnchor anchor) {
    asked.push_back(anchor);
    return isTaken;
  });
  headless::Window& window = open(Tabs::capture);
  window.click(window.find(Role::helpButton));
  EXPECT_FALSE(window.find(Role::popover).exists());
  isTaken = false;
  window.click(window.find(Role::helpButton));
  EXPECT_TRUE(window.find(Role::popover).exists());
  EXPECT_THAT(asked, ElementsAre(QEVHelpAnchor::settingsCapture, QEVHelpAnchor::settingsCapture));
  QEVCommonTools::setHelpHandler(nullptr);
}

TEST_F(QEVSettingsViewTest, ShowsTheFirstPageForASelectionWithoutPage) {
  EXPECT_TRUE(open(Tabs::proxy).findText("APPEARANCE").exists());
}

TEST_F(QEVSettingsViewTest, OpensOnTheDefaultTabAfterClosing) {
  open(Tabs::general).selectTab("Fonts");
  const headless::Window& window = open(Tabs::general);
  EXPECT_TRUE(window.findText("APPEARANCE").exists());
  EXPECT_FALSE(window.findText("INTERFACE FONTS").exists());
}

TEST_F(QEVSettingsViewTest, IsNeverNarrowerThanItsPagesNeed) {
  EXPECT_EQ(open(Tabs::appearance).host().sizeThatFits({.width = 300, .height = 700}).width, 720);
}

TEST_F(QEVSettingsViewTest, OpeningAPageWritesNothing) {
  headless::Window& window = open(Tabs::general);
  for (const char* tab : {"Capture", "Fonts", "General"}) window.selectTab(tab);
  close();
  EXPECT_THAT(store.changes(), IsEmpty());
  EXPECT_THAT(updaterStore.changes(), IsEmpty());
}

}  // namespace
}  // namespace QEVSettings
