// SPDX-License-Identifier: MIT
#include "AnalyzerWindowTest.hpp"
#include "QEVDependencies/QEVError.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "appkit/Event.hpp"
#include "support/LogCapture.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <stdexcept>
#include <tuple>

namespace QEVSettings {
namespace {

using headless::Key;
using support::wrote;
using testing::ElementsAre;
using testing::IsEmpty;
using viewkit::Role;

constexpr std::string_view kSelectedKey = kAnalyzerSelectedIndex.name;
constexpr const char* kNotPortBased = "This protocol is not port-based";

class QEVAnalyzerSettingsViewTest : public AnalyzerWindowTest {
protected:
  void loadThree() {
    for (const char* title : {"First", "Second", "Third"}) load(title);
  }

  static std::vector<std::string> selected(const headless::Window& window) {
    std::vector<std::string> titles;
    for (const auto& row : window.findAll(Role::listItem)) {
      if (row.isSelected() == true) titles.push_back(row.label());
    }
    return titles;
  }

  static bool showsDetailsOf(const headless::Window& window, const std::string& title) {
    return window.findText("What " + title + " is · its author · 1.2").exists();
  }
};

TEST_F(QEVAnalyzerSettingsViewTest, SelectsTheStoredAnalyzerWithinTheList) {
  loadThree();
  struct Case {
    std::optional<std::int64_t> stored;
    std::int64_t index = 0;
    const char* title = nullptr;
  };
  for (const Case& each : {
           Case{std::nullopt, 0, "First"},
           Case{1, 1, "Second"},
           Case{7, 2, "Third"},
           Case{-5, 0, "First"},
           Case{std::numeric_limits<std::int64_t>::max(), 2, "Third"},
       }) {
    SCOPED_TRACE(each.title);
    store.underneath().removeObject(kSelectedKey);
    if (each.stored) store.underneath().setInteger(*each.stored, kSelectedKey);
    store.forget();
    const headless::Window& window = open();
    EXPECT_THAT(selected(window), ElementsAre(each.title));
    EXPECT_TRUE(showsDetailsOf(window, each.title));
    EXPECT_THAT(store.changes(), ElementsAre(wrote(kSelectedKey, each.index)));
  }
}

TEST_F(QEVAnalyzerSettingsViewTest, FollowsClicksKeysAndTheStore) {
  loadThree();
  headless::Window& window = open();
  const auto press = [&](Key key) { window.press(key); };
  struct Step {
    std::function<void()> act;
    std::int64_t index = 0;
    const char* title = nullptr;
  };
  int number = 0;
  for (const Step& step : {
           Step{[&] { window.click(window.find(Role::listItem, "Third")); }, 2, "Third"},
           Step{[&] { press(Key::downArrow); }, 0, "First"},
           Step{[&] { press(Key::upArrow); }, 0, "First"},
           Step{[&] { press(Key::downArrow); }, 1, "Second"},
           Step{[&] { press(Key::upArrow); }, 0, "First"},
           Step{[&] { press(Key::rightArrow); }, 0, "First"},
           Step{[&] {
                  store.underneath().setInteger(2, kSelectedKey);
                  window.settle();
                },
                2, "Third"},
           Step{[&] { press(Key::upArrow); }, 1, "Second"},
       }) {
    SCOPED_TRACE(++number);
    step.act();
    EXPECT_EQ(store.underneath().integerForKey(kSelectedKey), step.index);
    EXPECT_THAT(selected(window), ElementsAre(step.title));
    EXPECT_TRUE(showsDetailsOf(window, step.title));
  }
}

TEST_F(QEVAnalyzerSettingsViewTest, ListIsTheFirstStopOfThePageAndOneStop) {
  loadThree();
  headless::Window& window = open();
  window.click(window.find(Role::tabList));
  window.press(Key::tab);
  const auto list = window.find(Role::list, "Analyzer");
  EXPECT_TRUE(list.isFocused());
  window.press(Key::downArrow);
  EXPECT_THAT(selected(window), ElementsAre("Second")) << "one step for one key";
  EXPECT_TRUE(list.isFocused());
  window.press(Key::tab);
  EXPECT_EQ(window.findAll(Role::listItem).size(), 3U);
  EXPECT_FALSE(list.isFocused());
}

TEST_F(QEVAnalyzerSettingsViewTest, PassesEveryKeyOn) {
  loadThree();
  open();
  for (const int key :
       {appkit::Event::kDownArrow, appkit::Event::kUpArrow, appkit::Event::kOtherKey}) {
    const auto passed =
        appkit::Event::passThroughMonitors(appkit::Event::kKeyDownMask, {.keyCode = key});
    ASSERT_TRUE(passed);
    EXPECT_EQ(passed->keyCode, key);
  }
}

TEST_F(QEVAnalyzerSettingsViewTest, LeavesTheArrowsToATextThatIsEdited) {
  auto ports = std::make_shared<AnalyzerPreferences>();
  ports->config = {.ports = {{.networkProtocolKey = "com_velloquin_qev_test_protocols",
                              .defaultProtocolNames = {},
                              .defaultPorts = {protocol("A", "1", 1)}}}};
  load("With ports", ports);
  load("Second");
  headless::Window& window = open();
  window.click(window.find(Role::textField));
  window.press(Key::downArrow);
  EXPECT_THAT(selected(window), ElementsAre("With ports"));
}

TEST_F(QEVAnalyzerSettingsViewTest, ReceivesKeysOnlyWhileItIsShown) {
  loadThree();
  headless::Window& window = open();
  window.selectTab("Fonts");
  window.press(Key::downArrow);
  EXPECT_EQ(store.underneath().integerForKey(kSelectedKey), 0);

  window.selectTab("Analyzer");
  EXPECT_THAT(selected(window), ElementsAre("First"));
  window.press(Key::downArrow);
  EXPECT_THAT(selected(window), ElementsAre("Second")) << "one press, one step: one monitor";

  close();
  appkit::Event::passThroughMonitors(appkit::Event::kKeyDownMask,
                                     {.keyCode = appkit::Event::kDownArrow});
  EXPECT_EQ(store.underneath().integerForKey(kSelectedKey), 1);
}

TEST_F(QEVAnalyzerSettingsViewTest, ShowsNothingWithoutAnalyzers) {
  headless::Window& window = open();
  EXPECT_TRUE(window.findText("Nothing selected").exists());
  EXPECT_THAT(store.changes(), IsEmpty());
  window.press(Key::downArrow);
  EXPECT_EQ(store.underneath().objectForKey(kSelectedKey), PreferenceValue(0));
  store.underneath().setInteger(3, kSelectedKey);
  window.press(Key::upArrow);
  EXPECT_EQ(store.underneath().integerForKey(kSelectedKey), 2);
  EXPECT_TRUE(window.findText("Nothing selected").exists());
}

TEST_F(QEVAnalyzerSettingsViewTest, IgnoresAnIndexBeyondItsList) {
  load("First");
  headless::Window& window = open();
  load("Loaded later");
  window.press(Key::downArrow);
  EXPECT_EQ(store.underneath().integerForKey(kSelectedKey), 1);
  EXPECT_THAT(selected(window), ElementsAre("First"));
  EXPECT_THAT(window.findAll(Role::listItem), testing::SizeIs(1));
}

TEST_F(QEVAnalyzerSettingsViewTest, ScrollsAnAnalyzerIntoSightAndItsDetailsToTheTop) {
  constexpr int count = 10'000;
  for (int i = 0; i < count; ++i) load("Analyzer " + std::to_string(i));
  headless::Window& window = open();
  EXPECT_LT(window.findAll(Role::listItem).size(), 100U) << "only rows in sight are made";

  store.underneath().setInteger(count / 2, kSelectedKey);
  window.settle();
  const auto row = window.find(Role::listItem, "Analyzer " + std::to_string(count / 2));
  ASSERT_TRUE(row.exists()) << row.problem();
  const auto list = window.findAll(Role::scrollArea).front().frame();
  EXPECT_GE(row.frame().origin.y, list.origin.y);
  EXPECT_LE(row.frame().maxY(), list.maxY());
}

TEST_F(QEVAnalyzerSettingsViewTest, ShowsTheSectionsOfEachKindOfAnalyzer) {
  using QEVDependencies::AnalyzerSettingsConfig;
  const QEVDependencies::AnalyzerToggleSpec toggle{
      .id = "1", .defaultsKey = "key", .labelKey = "An option"};
  const QEVDependencies::AnalyzerPortsSpec ports{
      .networkProtocolKey = "com_velloquin_qev_test_protocols",
      .defaultProtocolNames = {},
      .defaultPorts = {protocol("A", "1", 1)}};
  struct NoPreferences final : QEVDependencies::QEVPreferencesObject {};
  const auto with = [](std::optional<AnalyzerSettingsConfig> config) {
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config = std::move(config);
    return preferences;
  };
  load("without an object");
  load("object without settings", std::make_shared<NoPreferences>());
  load("nothing to configure", with(std::nullopt));
  load("options", with(AnalyzerSettingsConfig{.toggles = {toggle}}));
  load("ports", with(AnalyzerSettingsConfig{.toggles = {toggle}, .ports = ports}));

  headless::Window& window = open();
  struct Case {
    const char* title;
    bool saysNoOptions;
    bool showsOption;
    bool showsPorts;
  };
  for (const Case& each : {
           Case{"without an object", true, false, false},
           Case{"object without settings", true, false, false},
           Case{"nothing to configure", true, false, false},
           Case{"options", false, true, false},
           Case{"ports", false, true, true},
       }) {
    SCOPED_TRACE(each.title);
    window.click(window.find(Role::listItem, each.title));
    EXPECT_TRUE(showsDetailsOf(window, each.title));
    EXPECT_EQ(window.findText("No configurable options").exists(), each.saysNoOptions);
    EXPECT_EQ(window.find(Role::toggle, "An option").exists(), each.showsOption);
    EXPECT_EQ(window.find(Role::textField).exists(), each.showsPorts);
    EXPECT_EQ(window.findText(kNotPortBased).exists(), !each.showsPorts);
  }
}

struct ThrowingView {
  viewkit::View body() const { throw std::runtime_error("broken"); }
};

TEST_F(QEVAnalyzerSettingsViewTest, WhatAnAnalyzerThrowsIsShownOnItsPage) {
  const auto with = [](std::function<viewkit::View()> extraContent) {
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config = {.toggles = {{.id = "1", .defaultsKey = "key", .labelKey = "An option"}},
                           .extraContent = std::move(extraContent)};
    return preferences;
  };
  const auto description = with({});
  description->refuseToDescribe = [] { throw std::runtime_error("broken"); };
  load("Sound", with({}));
  load("Description", description);
  load("Content",
       with([]() -> viewkit::View { throw QEVDependencies::QEVError::analyzerNotRunning; }));
  load("Content's body", with([] { return ThrowingView{}; }));

  const support::LogCapture log;
  headless::Window& window = open();
  for (const auto& [title, error, showsOption] :
       {std::tuple{"Description", "Error", false},
        {"Content", "Error\nThe analyzer is not running.", true},
        {"Content's body", "Error", true}}) {
    SCOPED_TRACE(title);
    window.click(window.find(Role::listItem, title));
    EXPECT_TRUE(showsDetailsOf(window, title));
    EXPECT_THAT(window.find(Role::alert).label(), testing::StartsWith(error));
    EXPECT_EQ(window.find(Role::toggle, "An option").exists(), showsOption);
    window.click(window.find(Role::listItem, "Sound"));
    EXPECT_FALSE(window.find(Role::alert).exists());
  }
}

}  // namespace
}  // namespace QEVSettings
