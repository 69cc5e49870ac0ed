// SPDX-License-Identifier: MIT
#include "AnalyzerWindowTest.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <gmock/gmock.h>

namespace QEVSettings {
namespace {

using headless::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;

constexpr std::string_view kSelection = kAnalyzerSelectedIndex.name;
constexpr const char* kWebPorts = "com_velloquin_qev_web_protocols";

// Two analyzers with ports. The first is shown.
class LeavingAnalyzerTest : public AnalyzerWindowTest {
protected:
  LeavingAnalyzerTest() {
    const auto config = [](const char* key) {
      return QEVDependencies::AnalyzerSettingsConfig{
          .ports = {{.networkProtocolKey = key,
                     .defaultProtocolNames = {"HTTP", "Proxy"},
                     .defaultPorts = {protocol("HTTP", "80", 1)}}}};
    };
    web->config = config(kWebPorts);
    names->config = config("com_velloquin_qev_names_protocols");
    load("Web", web);
    load("Names", names);
  }

  // Closing the window writes to the journal.
  ~LeavingAnalyzerTest() override { close(); }

  std::int64_t selected() { return store.underneath().integerForKey(kSelection); }

  Journal journal;
  std::shared_ptr<PortsPreferences> web = std::make_shared<PortsPreferences>(journal);
  std::shared_ptr<PortsPreferences> names = std::make_shared<PortsPreferences>(journal);
};

TEST_F(LeavingAnalyzerTest, ArrowKeyOnAMenuMovesTheSelectionAndOpensNothing) {
  headless::Window& window = open();
  window.click(window.find(Role::menuButton, "Name"));
  window.press(Key::downArrow);
  EXPECT_EQ(selected(), 1);
  EXPECT_FALSE(window.isMenuOpen());
  window.press(Key::downArrow);
  window.press(Key::enter);
  EXPECT_THAT(journal, IsEmpty());
  EXPECT_FALSE(store.underneath().objectForKey(kWebPorts));
}

TEST_F(LeavingAnalyzerTest, KeyThatOpensAMenuLeavesTheSelectionAlone) {
  for (const auto& [key, modifiers] : {std::pair{Key::downArrow, appkit::Event::option},
                                       {Key::f4, appkit::Event::none},
                                       {Key::space, appkit::Event::none},
                                       {Key::enter, appkit::Event::none}}) {
    headless::Window& window = open();
    window.click(window.find(Role::menuButton, "Name"));
    window.press(key, modifiers);
    EXPECT_TRUE(window.isMenuOpen());
    EXPECT_EQ(selected(), 0);
    window.press(Key::downArrow);
    window.press(Key::enter);
    EXPECT_EQ(window.find(Role::menuButton, "Name").value(), "Proxy");
    store.underneath().removeObject(kWebPorts);
  }
}

TEST_F(LeavingAnalyzerTest, OpenMenuGoesWithAnAnalyzerThatAnotherProcessLeaves) {
  headless::Window& window = open();
  const auto menu = window.find(Role::menuButton, "Name");
  const auto items = window.menuItems(menu);
  ASSERT_TRUE(window.openMenu(menu));
  store.underneath().setInteger(1, kSelection);
  window.settle();
  EXPECT_FALSE(window.isMenuOpen());
  items.back().action();
  window.settle();
  EXPECT_THAT(journal, IsEmpty()) << "an item of a menu that is gone does nothing";
  EXPECT_FALSE(store.underneath().objectForKey(kWebPorts));
}

TEST_F(LeavingAnalyzerTest, TypedPortsAreCommittedOnce) {
  headless::Window& window = open();
  window.click(window.find(Role::textField));
  window.selectAll();
  window.type("8080");
  store.underneath().setInteger(1, kSelection);
  window.settle();
  EXPECT_THAT(journal, ElementsAre("replace HTTP 80 1 by HTTP 8080 1, ports"));
}

}  // namespace
}  // namespace QEVSettings
