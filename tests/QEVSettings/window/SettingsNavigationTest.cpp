// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsNavigation.hpp"

#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "SettingsWindowTest.hpp"
#include "TestAnalyzers.hpp"
#include "viewkit/EnvironmentObject.hpp"
#include "viewkit/Text.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace QEVSettings {
namespace {

using viewkit::Role;

constexpr const char* kChecksums = "com_velloquin_qev_second_checksums";

// Takes the navigation of the window that it is shown in.
struct Probe {
  std::shared_ptr<std::shared_ptr<SettingsNavigation>> found;
  viewkit::View body() const {
    *found = viewkit::Environment::current().object<SettingsNavigation>();
    return viewkit::Text("probe");
  }
};

class SettingsNavigationTest : public SettingsWindowTest {
protected:
  void SetUp() override {
    plugIns_.load("First");
    auto preferences = std::make_shared<AnalyzerPreferences>();
    preferences->config.emplace();
    for (int i = 0; i < 30; ++i) {
      const std::string number = std::to_string(i);
      preferences->config->toggles.push_back(
          {.id = number, .defaultsKey = "com_velloquin_qev_second_" + number, .labelKey = number});
    }
    preferences->config->toggles.push_back(
        {.id = "checksums", .defaultsKey = kChecksums, .labelKey = "Sums"});
    plugIns_.load("Second", preferences);
  }

  headless::Window& openWithNavigation(Tabs tab) {
    headless::Window& window = open(tab, viewkit::View(Probe{found_}));
    if (!*found_) {
      window.selectTab("MITM Proxy");
      window.selectTab("General");
    }
    return window;
  }
  SettingsNavigation& navigation() { return **found_; }

  static std::vector<viewkit::Rect> marks(const headless::Window& window) {
    std::vector<viewkit::Rect> marks;
    collect(window.host().presentation(), marks);
    return marks;
  }

private:
  static void collect(const viewkit::PresentationNode& node, std::vector<viewkit::Rect>& marks) {
    const auto* shape = std::get_if<viewkit::ShapeVisual>(&node.content);
    if (shape && shape->fill == appkit::Color::accent().withOpacity(0.16))
      marks.push_back(node.frameInWindow());
    for (const viewkit::PresentationNode* child : node.children) collect(*child, marks);
  }

  LoadedPlugIns plugIns_;
  std::shared_ptr<std::shared_ptr<SettingsNavigation>> found_ =
      std::make_shared<std::shared_ptr<SettingsNavigation>>();
};

TEST_F(SettingsNavigationTest, ShowsTheRowOfAnAnalyzersOption) {
  headless::Window& window = openWithNavigation(Tabs::general);
  ASSERT_TRUE(navigation().show(kChecksums));
  window.settle();
  EXPECT_EQ(window.find(Role::tabList).value(), "Analyzer");
  EXPECT_EQ(store.integerForKey(kAnalyzerSelectedIndex.name), 1);
  ASSERT_TRUE(window.focused().has_value());
  EXPECT_EQ(window.focused()->label(), "Sums");
  // The row is tinted, and stands inside of the window after scrolling.
  ASSERT_EQ(marks(window).size(), 1U);
  EXPECT_LT(marks(window)[0].origin.y, window.size().height);
  EXPECT_GT(marks(window)[0].origin.y, 76);
  window.press(headless::Key::space);
  EXPECT_TRUE(store.boolForKey(kChecksums));
}

TEST_F(SettingsNavigationTest, EndsTheTint) {
  headless::Window& window = openWithNavigation(Tabs::general);
  ASSERT_TRUE(navigation().show(QEVKonstantsKeys::kPrefTimezoneString.name));
  window.settle();
  EXPECT_EQ(window.focused()->label(), "Packet time zone");
  EXPECT_EQ(marks(window).size(), 1U);
  navigation().endHighlight();
  window.settle();
  EXPECT_TRUE(marks(window).empty());
}

TEST_F(SettingsNavigationTest, TintLastsUntilTheNextActionWhereMotionIsReduced) {
  headless::Window& window = openWithNavigation(Tabs::general);
  window.setEnvironment({.defaultStore = store, .reducedMotion = true});
  const auto show = [&] {
    ASSERT_TRUE(navigation().show(kChecksums));
    window.settle();
    ASSERT_EQ(marks(window).size(), 1U);
  };
  show();
  window.press(headless::Key::tab);
  EXPECT_TRUE(marks(window).empty());
  show();
  store.setBool(true, kChecksums);
  window.settle();
  EXPECT_TRUE(marks(window).empty());
  show();
  window.selectTab("Fonts");
  window.selectTab("Analyzer");
  EXPECT_TRUE(marks(window).empty());
}

TEST_F(SettingsNavigationTest, ShowsNothingForAKeyWithoutARow) {
  headless::Window& window = openWithNavigation(Tabs::capture);
  EXPECT_FALSE(navigation().show("com_velloquin_qev_unknown"));
  EXPECT_FALSE(navigation().show(kPrefsSchemaVersion.name));
  EXPECT_FALSE(navigation().show({.tab = "analyze", .analyzer = "Third"}));
  window.settle();
  EXPECT_TRUE(marks(window).empty());
}

TEST_F(SettingsNavigationTest, FindsTheRowsOfPagesThatSiblingsMake) {
  headless::Window& window = openWithNavigation(Tabs::general);
  ASSERT_TRUE(navigation().show(QEVCoreComponents::QEVCaptureViewModel::kFilterKey));
  window.settle();
  EXPECT_EQ(window.find(Role::tabList).value(), "Capture");
  ASSERT_TRUE(window.focused().has_value());
  EXPECT_EQ(window.focused()->label(), "Capture filter");
}

}  // namespace
}  // namespace QEVSettings
