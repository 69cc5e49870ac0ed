// SPDX-License-Identifier: MIT
#include "PortsEditorTest.hpp"
#include "QEVDependencies/QEVError.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <gmock/gmock.h>

#include <stdexcept>

namespace QEVSettings {
namespace {

using headless::Key;
using QEVDependencies::QEVError;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using viewkit::Role;

using CompactPortsEditorViewTest = PortsEditorTest;

TEST_F(CompactPortsEditorViewTest, ShowsTheStoredListOrElseTheFactoryList) {
  EXPECT_THAT(shownPorts(show()), ElementsAre("80", "3128,8080"));
  EXPECT_FALSE(store.underneath().objectForKey(kPortsKey)) << "being shown stores nothing";

  close();
  QEVModels::AnalyzerPortsStore(kPortsKey, store.underneath())
      .encode({protocol("", "1-5", 3), protocol("X", "9", 77)});
  const headless::Window& window = show();
  EXPECT_THAT(shownPorts(window), ElementsAre("1-5", "9"));
  EXPECT_EQ(menu(window, "Name", 0).value(), "Select");
  EXPECT_EQ(menu(window, "Source", 0).value(), "UDP/TCP");
  EXPECT_EQ(menu(window, "Source", 1).value(), "None");
}

TEST_F(CompactPortsEditorViewTest, ReportsStoresAndNotifiesAPickedNameInThisOrder) {
  headless::Window& window = show();
  std::vector<std::string> titles;
  for (const auto& item : window.menuItems(menu(window, "Name", 0))) titles.push_back(item.title);
  EXPECT_THAT(titles, ElementsAre("HTTP", "Proxy", "WebSocket"));

  window.choose(menu(window, "Name", 0), "WebSocket");
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by WebSocket 80 1, name", "store", "notify 9",
                                   "notify 3"));
  EXPECT_THAT(storedPorts(), ElementsAre("WebSocket 80", "Proxy 3128,8080"));
  EXPECT_EQ(menu(window, "Name", 0).value(), "WebSocket");
  EXPECT_EQ(factory[0]->protocolName.get(), "HTTP") << "the factory records stay as they are";
}

TEST_F(CompactPortsEditorViewTest, ReportsAPickedSourceAgainstTheLastRegisteredState) {
  headless::Window& window = show();
  window.choose(menu(window, "Source", 0), "UDP");
  window.choose(menu(window, "Source", 0), "None");
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by HTTP 80 2, source", "store", "notify 9",
                                   "notify 3", "replace HTTP 80 2 by HTTP 80 0, source", "store",
                                   "notify 9", "notify 3"));
}

TEST_F(CompactPortsEditorViewTest, CommitsTheNormalFormAndTellsTheCorrectionsLineByLine) {
  headless::Window& window = show();
  type(window, 0, "81, x, 70000, 81");
  EXPECT_THAT(journal, IsEmpty()) << "typing alone changes nothing";

  window.press(Key::enter);
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by HTTP 81 1, ports", "store", "notify 9",
                                   "notify 3"));
  EXPECT_THAT(shownPorts(window), ElementsAre("81", "3128,8080"));
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 81", "Proxy 3128,8080"));
  const std::string said = window.find(Role::alert).label();
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 2) << said;
  EXPECT_THAT(said, HasSubstr("“70000”"));

  type(window, 0, "82");
  window.press(Key::enter);
  EXPECT_FALSE(window.find(Role::alert).exists()) << "a clean commit clears what was said";
}

TEST_F(CompactPortsEditorViewTest, KeepsATextWithoutPortsAndSaysSoOnItsRow) {
  headless::Window& window = show();
  const auto second = window.findAll(Role::textField)[1].frame();
  type(window, 0, "none of them");
  window.press(Key::enter);
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_THAT(shownPorts(window), ElementsAre("none of them", "3128,8080"));
  const auto alert = window.find(Role::alert);
  EXPECT_THAT(alert.label(), testing::StartsWith("Error"));
  EXPECT_LE(alert.frame().maxY(), window.findAll(Role::textField)[1].frame().origin.y);
  EXPECT_GT(window.findAll(Role::textField)[1].frame().origin.y, second.origin.y);
}

TEST_F(CompactPortsEditorViewTest, RefusalOfTheAnalyzerStoresNothing) {
  const std::string details = message(QEVError::analyzerRefusedChange);
  headless::Window& window = show();
  preferences->refuse = [] { throw QEVError::analyzerRefusedChange; };
  window.choose(menu(window, "Name", 0), "Proxy");
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by Proxy 80 1, name"));
  EXPECT_EQ(window.find(Role::alert).label(), "Error\n" + details);
  EXPECT_EQ(menu(window, "Name", 0).value(), "Proxy") << "the row keeps what was picked";

  journal.clear();
  preferences->refuse = [] { throw std::runtime_error("anything else"); };
  type(window, 1, "1");
  window.press(Key::enter);
  EXPECT_THAT(journal, ElementsAre("replace Proxy 3128,8080 1 by Proxy 1 1, ports"));
  ASSERT_EQ(window.findAll(Role::alert).size(), 2U);
  EXPECT_EQ(window.findAll(Role::alert)[1].label(), "Error");
  EXPECT_FALSE(store.underneath().objectForKey(kPortsKey));
  preferences->refuse = nullptr;
}

TEST_F(CompactPortsEditorViewTest, ResetsRowByRowAndStoresTheFactoryList) {
  QEVModels::AnalyzerPortsStore(kPortsKey, store.underneath())
      .encode({protocol("HTTP", "8000", 1), protocol("Unknown", "5", 1), protocol("Proxy", "", 1),
               protocol("Proxy", "9", 2)});
  headless::Window& window = show();
  preferences->refuse = [this] {
    if (journal.size() == 1) throw QEVError::registrationFailed;
  };
  window.click(window.find(Role::button, "Reset"));
  EXPECT_THAT(journal, ElementsAre("replace HTTP 8000 1 by HTTP 80 1, ports",
                                   "replace Proxy 9 2 by Proxy 3128,8080 1, ports",
                                   "set default settings", "store", "notify 9", "notify 3"));
  EXPECT_THAT(shownPorts(window), ElementsAre("80", "3128,8080"));
  EXPECT_THAT(storedPorts(), ElementsAre("HTTP 80", "Proxy 3128,8080"));
  EXPECT_FALSE(window.find(Role::alert).exists()) << "the rows that failed are no longer there";
}

TEST_F(CompactPortsEditorViewTest, CommitsTypedTextWhenItDisappears) {
  load("Another");
  const auto goAway = std::vector<std::pair<std::string, std::function<void(headless::Window&)>>>{
      {"another tab", [](headless::Window& window) { window.selectTab("Fonts"); }},
      {"another analyzer",
       [](headless::Window& window) { window.click(window.find(Role::listItem, "Another")); }},
      {"the window closes", [this](headless::Window&) { close(); }},
  };
  for (const auto& [name, leave] : goAway) {
    SCOPED_TRACE(name);
    store.underneath().removeObject(kPortsKey);
    store.underneath().setInteger(0, kAnalyzerSelectedIndex.name);
    headless::Window& window = show();
    type(window, 0, "99,98");
    leave(window);
    EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by HTTP 98,99 1, ports", "store",
                                     "notify 9", "notify 3"));
  }
}

TEST_F(CompactPortsEditorViewTest, CommitsNothingWhenItDisappearsUnchanged) {
  headless::Window& window = show();
  window.selectTab("Fonts");
  EXPECT_THAT(journal, IsEmpty());
}

TEST_F(CompactPortsEditorViewTest, WorksAfterItsControllerIsGone) {
  auto silent = std::make_shared<AnalyzerPreferences>();
  silent->config = preferences->config;
  load("Web without a ports interface", silent);
  headless::Window& window = show();
  window.click(window.find(Role::listItem, "Web without a ports interface"));
  journal.clear();
  window.choose(menu(window, "Source", 1), "UDP/TCP");
  type(window, 1, "1-3");
  window.press(Key::enter);
  window.click(window.find(Role::button, "Reset"));
  EXPECT_THAT(journal, ElementsAre("store", "notify 9", "notify 3", "store", "notify 9", "notify 3",
                                   "store", "notify 9", "notify 3"));
}

TEST_F(CompactPortsEditorViewTest, FieldsHaveNamesOfTheirOwnAndTellWhatIsWrong) {
  headless::Window& window = show();
  const auto http = window.find(viewkit::Role::textField, "Ports of HTTP");
  const auto proxy = window.find(viewkit::Role::textField, "Ports of Proxy");
  ASSERT_TRUE(http.exists()) << http.problem();
  ASSERT_TRUE(proxy.exists()) << proxy.problem();
  const auto commit = [&](std::string_view text) {
    window.click(http);
    window.selectAll();
    window.type(text);
    window.press(headless::Key::enter);
  };
  const auto symbols = [&] {
    std::vector<std::string> names;
    const auto visit = [&](const auto& self, const viewkit::PresentationNode& node) -> void {
      if (const auto* symbol = std::get_if<viewkit::SymbolVisual>(&node.content))
        names.emplace_back(symbol->name.text());
      for (const auto* child : node.children) self(self, *child);
    };
    const auto alert = window.findAll(viewkit::Role::alert);
    if (!alert.empty()) visit(visit, alert.front().content());
    return names;
  };
  commit("nothing");
  EXPECT_NE(http.content().accessibility.problem, "");
  EXPECT_EQ(proxy.content().accessibility.problem, "");
  EXPECT_THAT(symbols(), testing::ElementsAre("exclamationmark.triangle.fill"));
  commit("80, 90-70");
  EXPECT_EQ(http.content().accessibility.problem, "") << "a correction is stored";
  EXPECT_THAT(symbols(), testing::ElementsAre("info.circle.fill"));
}

}  // namespace
}  // namespace QEVSettings
