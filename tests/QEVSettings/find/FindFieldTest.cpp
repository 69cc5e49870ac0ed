// SPDX-License-Identifier: MIT
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "SettingsWindowTest.hpp"
#include "TestAnalyzers.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace QEVSettings {
namespace {

using headless::Key;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;

class FindFieldTest : public SettingsWindowTest {
protected:
  void SetUp() override {
    for (const char* title : {"First", "Second"}) {
      auto preferences = std::make_shared<AnalyzerPreferences>();
      preferences->config.emplace();
      preferences->config->toggles.push_back({.id = "sums",
                                              .defaultsKey = std::string(title) + "_sums",
                                              .labelKey = "Compute checksums"});
      plugIns.load(title, preferences);
    }
  }

  // The titles and places in the list.
  static std::vector<std::string> results(const headless::Window& window) {
    std::vector<std::string> labels;
    for (const auto& item : window.findAll(Role::listItem)) labels.push_back(item.label());
    return labels;
  }

  static std::string selected(const headless::Window& window) {
    for (const auto& item : window.findAll(Role::listItem)) {
      if (item.content().accessibility.selected.value_or(false)) return item.label();
    }
    return {};
  }

  static void find(headless::Window& window, std::string_view text) {
    window.press(Key::f, appkit::Event::control);
    window.type(text);
  }

  LoadedPlugIns plugIns;
};

TEST_F(FindFieldTest, ListsResultsWhileTyping) {
  headless::Window& window = open(Tabs::general);
  EXPECT_FALSE(window.find(Role::comboBox).content().accessibility.expanded.value_or(true));
  find(window, "chec");
  EXPECT_THAT(results(window), ElementsAre("Compute checksums Analyzer › First",
                                           "Compute checksums Analyzer › Second"));
  EXPECT_TRUE(window.find(Role::comboBox).content().accessibility.expanded.value_or(false));
  EXPECT_TRUE(window.findText("Results: 2").exists());
  window.type("ksums second");
  EXPECT_THAT(results(window), ElementsAre("Compute checksums Analyzer › Second"));
  window.type("x");
  EXPECT_THAT(results(window), IsEmpty());
  EXPECT_TRUE(window.findText("No setting found").exists());
}

TEST_F(FindFieldTest, ChoosesByKeyboard) {
  headless::Window& window = open(Tabs::general);
  find(window, "checksums");
  EXPECT_EQ(selected(window), "Compute checksums Analyzer › First");
  window.press(Key::downArrow);
  EXPECT_EQ(selected(window), "Compute checksums Analyzer › Second");
  window.press(Key::downArrow);
  window.press(Key::upArrow);
  window.press(Key::enter);
  EXPECT_THAT(window.findAll(Role::popover), IsEmpty());
  EXPECT_EQ(window.find(Role::tabList).value(), "Analyzer");
  EXPECT_EQ(store.integerForKey(kAnalyzerSelectedIndex.name), 1);
  ASSERT_TRUE(window.focused().has_value());
  EXPECT_EQ(window.focused()->label(), "Compute checksums");
  window.press(Key::space);
  EXPECT_TRUE(store.boolForKey("Second_sums"));
}

TEST_F(FindFieldTest, ChoosesByMouse) {
  headless::Window& window = open(Tabs::general);
  window.click(window.find(Role::comboBox));
  window.type("packet time zone");
  // A click in the field leaves the list open.
  window.click(window.find(Role::comboBox));
  ASSERT_EQ(results(window).size(), 1U);
  window.click(window.findAll(Role::listItem)[0]);
  EXPECT_THAT(window.findAll(Role::popover), IsEmpty());
  EXPECT_EQ(window.focused()->label(), "Packet time zone");
  EXPECT_EQ(window.find(Role::comboBox).value(), "packet time zone");
}

TEST_F(FindFieldTest, EscapeClearsTheFieldBeforeItClosesTheWindow) {
  headless::Window& window = open(Tabs::general);
  find(window, "checksums");
  window.press(Key::escape);
  EXPECT_TRUE(window.isOpen());
  EXPECT_EQ(window.find(Role::comboBox).value(), "");
  EXPECT_THAT(window.findAll(Role::popover), IsEmpty());
  window.press(Key::escape);
  EXPECT_FALSE(window.isOpen());
}

TEST_F(FindFieldTest, ArrowKeysLeaveTheSelectedAnalyzerAlone) {
  headless::Window& window = open(Tabs::analyze);
  find(window, "checksums");
  window.press(Key::downArrow);
  EXPECT_EQ(store.integerForKey(kAnalyzerSelectedIndex.name), 0);
}

TEST_F(FindFieldTest, LeavingTheFieldClosesTheList) {
  headless::Window& window = open(Tabs::general);
  find(window, "checksums");
  window.press(Key::tab);
  EXPECT_THAT(window.findAll(Role::popover), IsEmpty());
  // Ctrl+F brings the results back, and the text is replaced by what is typed.
  find(window, "f");
  EXPECT_THAT(results(window), Contains("Fonts Tab"));
}

TEST_F(FindFieldTest, ShowsChangedSettings) {
  store.setBool(true, "Second_sums");
  headless::Window& window = open(Tabs::general);
  const auto button = window.find(Role::button, "Only settings that were changed");
  window.click(button);
  EXPECT_THAT(results(window), ElementsAre("Compute checksums Analyzer › Second"));
  EXPECT_EQ(window.find(Role::comboBox).value(), "is:changed");
  EXPECT_EQ(window.focused()->content().accessibility.role, Role::comboBox);
  window.click(button);
  EXPECT_EQ(window.find(Role::comboBox).value(), "");
}

TEST_F(FindFieldTest, FindsAnalyzersThatAreLoadedLater) {
  headless::Window& window = open(Tabs::general);
  find(window, "third");
  EXPECT_THAT(results(window), IsEmpty());
  plugIns.load("Third");
  window.press(Key::escape);
  window.type("third");
  EXPECT_THAT(results(window), ElementsAre("Third Analyzer"));
}

TEST_F(FindFieldTest, MovesNeitherTabsNorPages) {
  const auto frames = [&](SettingsWindowOptions options) {
    const headless::Window window(
        QEVSettingsView(updater, delegate, captureModel, Tabs::general, std::nullopt, options),
        viewkit::Environment{.defaultStore = store}, {.size = viewkit::Size{720, 680}});
    return std::vector{window.find(Role::tabList).frame(),
                       window.find(Role::menuButton, "Packet time zone").frame()};
  };
  EXPECT_EQ(frames({}), frames({.hasFind = false}));
}

TEST_F(FindFieldTest, BuildsNoPageThatIsNotShown) {
  headless::Window& window = open(Tabs::general);
  find(window, "checksums");
  window.host().counters() = {};
  window.press(Key::downArrow);
  // The field, its list, and nothing of a page.
  EXPECT_LT(window.host().counters().bodiesRun, 8U);
}

}  // namespace
}  // namespace QEVSettings
