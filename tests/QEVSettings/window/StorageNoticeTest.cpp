// SPDX-License-Identifier: MIT
#include "QEVKonstantsKeys/Keys.hpp"
#include "SettingsWindowTest.hpp"
#include "headless/Description.hpp"

#include <gmock/gmock.h>

#include <set>

namespace QEVSettings {
namespace {

using Outcome = StoreOpening::Outcome;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using viewkit::Role;

constexpr const char* kDiskFull =
    "Changes cannot be saved: the disk is full. They are kept and will be saved when there is "
    "room.";

// What no other test reports: each recovery is shown once in a process.
StoreOpening reported(Outcome outcome, std::size_t lostKeys = 0) {
  static int count = 0;
  return {.outcome = outcome,
          .message = "report " + std::to_string(++count),
          .copyTime = std::nullopt,
          .lostKeys = lostKeys};
}

class StorageNoticeTest : public SettingsWindowTest {
protected:
  static std::vector<std::string> alerts(const headless::Window& window) {
    std::vector<std::string> texts;
    for (const auto& alert : window.findAll(Role::alert)) texts.push_back(alert.label());
    return texts;
  }
  static std::string tree(const headless::Window& window) {
    return headless::textDescription(window.describe());
  }

  headless::Window secondWindow() {
    return {settingsView(Tabs::general), viewkit::Environment{.defaultStore = store},
            headless::WindowOptions{.size = viewkit::Size{720, 680}}};
  }
};

TEST_F(StorageNoticeTest, ProblemIsShownOnEveryPageUntilItIsOver) {
  headless::Window& window = open(Tabs::general);
  const std::string before = tree(window);
  store.setStorageProblem(StorageProblem::diskFull);
  window.settle();
  for (const char* tab : {"Capture", "Analyzer", "Fonts", "General"}) {
    window.selectTab(tab);
    EXPECT_THAT(alerts(window), ElementsAre(kDiskFull)) << tab;
  }
  EXPECT_FALSE(window.find(Role::button, "Dismiss").exists()) << "it stays as long as the problem";

  store.setStorageProblem(std::nullopt);
  window.settle();
  EXPECT_EQ(tree(window), before) << "a window with nothing to say has no trace of the bar";
}

TEST_F(StorageNoticeTest, WindowThatOpensDuringAProblemReportsIt) {
  store.setStorageProblem(StorageProblem::busy);
  EXPECT_THAT(alerts(open(Tabs::appearance)), SizeIs(1));
}

TEST_F(StorageNoticeTest, EachProblemHasItsOwnText) {
  headless::Window& window = open(Tabs::general);
  std::set<std::string> texts;
  for (const auto problem :
       {StorageProblem::diskFull, StorageProblem::notWritable, StorageProblem::busy,
        StorageProblem::unusable, StorageProblem::noFile, StorageProblem::failing}) {
    store.setStorageProblem(problem);
    window.settle();
    ASSERT_THAT(alerts(window), ElementsAre(testing::StartsWith("Changes cannot be saved: ")));
    texts.insert(alerts(window).front());
  }
  store.setStorageProblem(std::nullopt);
  store.setOpening(reported(Outcome::inMemory));
  window.settle();
  ASSERT_THAT(alerts(window), SizeIs(1));
  texts.insert(alerts(window).front());
  EXPECT_THAT(texts, SizeIs(7));
}

TEST_F(StorageNoticeTest, BarTakesSpaceAboveTheTabsAndCoversNothing) {
  headless::Window& window = open(Tabs::analyze);
  const double heightBefore = window.host().sizeThatFits({720, std::nullopt}).height;
  const auto tabs = window.find(Role::tabList);
  const auto before = tabs.frame();
  store.setStorageProblem(StorageProblem::unusable);
  window.settle();

  const auto alert = window.find(Role::alert);
  EXPECT_LE(alert.frame().maxY(), tabs.frame().origin.y);
  EXPECT_LE(alert.frame().maxX(), 720);
  const double grown = window.host().sizeThatFits({720, std::nullopt}).height - heightBefore;
  EXPECT_GT(grown, alert.frame().size.height);
  EXPECT_EQ(tabs.frame().origin.y, before.origin.y + grown);
  EXPECT_EQ(tabs.frame().size, before.size);
  EXPECT_EQ(window.host().sizeThatFits({.width = 0, .height = 0}).width, 720)
      << "a long text wraps";
}

TEST_F(StorageNoticeTest, PageKeepsItsTextWhenTheBarComesAndGoes) {
  headless::Window& window = open(Tabs::capture);
  const auto field = window.find(Role::textField, "Capture filter");
  window.click(field);
  window.type("tcp p");
  store.setStorageProblem(StorageProblem::diskFull);
  window.settle();
  window.type("ort 4");
  store.setStorageProblem(std::nullopt);
  window.settle();
  window.type("43");
  EXPECT_EQ(field.value(), "tcp port 443");
  EXPECT_TRUE(field.isFocused());
}

TEST_F(StorageNoticeTest, PageShowsWhatIsInMemoryWhileTheStoreCannotBeWritten) {
  store.setStorageProblem(StorageProblem::notWritable);
  headless::Window& window = open(Tabs::general);
  window.click(window.find(Role::button, "Light"));
  EXPECT_EQ(window.find(Role::button, "Light").isSelected(), true);
  EXPECT_EQ(store.stringForKey(QEVKonstantsKeys::kAppearanceName.name), kAppearanceNameAqua);
  EXPECT_THAT(alerts(window), SizeIs(1)) << "the bar says that the change is not in the file";
}

TEST_F(StorageNoticeTest, RecoveryIsShownUntilItIsDismissedInAnyWindow) {
  headless::Window& window = open(Tabs::general);
  const headless::Window other = secondWindow();
  for (const StoreOpening& opening : {reported(Outcome::restored), reported(Outcome::restored, 3),
                                      reported(Outcome::begunEmpty)}) {
    SCOPED_TRACE(opening.message);
    store.setOpening(opening);
    window.settle();
    ASSERT_THAT(alerts(window), SizeIs(1));
    EXPECT_EQ(alerts(window).front().ends_with(": 3"), opening.lostKeys == 3)
        << alerts(window).front();
    EXPECT_EQ(alerts(other), alerts(window));

    window.click(window.find(Role::button, "Dismiss"));
    EXPECT_THAT(alerts(window), IsEmpty());
    EXPECT_THAT(alerts(other), IsEmpty());
  }
  EXPECT_THAT(store.changes(), IsEmpty()) << "dismissing is not a preference";
}

TEST_F(StorageNoticeTest, RecoveryIsNotShownAgainAfterItsWindowClosed) {
  store.setOpening(reported(Outcome::restored));
  EXPECT_THAT(alerts(open(Tabs::general)), SizeIs(1));
  EXPECT_THAT(alerts(open(Tabs::general)), IsEmpty()) << "the window that reported it has closed";
}

TEST_F(StorageNoticeTest, ProblemAndRecoveryAreShownTogether) {
  store.setOpening(reported(Outcome::begunEmpty));
  store.setStorageProblem(StorageProblem::diskFull);
  headless::Window& window = open(Tabs::general);
  ASSERT_THAT(alerts(window), SizeIs(2));
  window.click(window.find(Role::button, "Dismiss"));
  EXPECT_THAT(alerts(window), ElementsAre(kDiskFull));
}

}  // namespace
}  // namespace QEVSettings
