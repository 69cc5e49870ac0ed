// SPDX-License-Identifier: MIT
#include "HostParts.hpp"
#include "qt/WindowFixture.hpp"

#include <gmock/gmock.h>

namespace QEVSettings {
namespace {

// The bars in a real window.
class StorageNoticeDesktopTest : public qt::WindowFixture, protected HostParts {
protected:
  void SetUp() override {
    useStore(store);
    open(settingsView(QEVSettingsView::Tabs::general));
  }

  // The text of the only alert.
  QString alert() const { return find(QAccessible::AlertMessage).text(QAccessible::Name); }

  void report(std::optional<StorageProblem> problem) {
    store.setStorageProblem(problem);
    settle();
  }
};

TEST_F(StorageNoticeDesktopTest, EachProblemIsAnAlertAndTheWindowGrowsForIt) {
  const int height = topLevel().height();
  report(StorageProblem::diskFull);
  EXPECT_TRUE(alert().contains("the disk is full"));
  EXPECT_EQ(topLevel().height(), topLevel().sizeHint().height())
      << "no control is covered or cut off";
  EXPECT_GT(topLevel().height(), height);
  EXPECT_TRUE(topLevel().rect().contains(
      topLevel().mapFromGlobal(find(QAccessible::AlertMessage).rect().center())));

  report(StorageProblem::busy);
  EXPECT_TRUE(alert().contains("another program"));

  report(std::nullopt);
  EXPECT_FALSE(has(QAccessible::AlertMessage));
  EXPECT_EQ(topLevel().height(), height);
}

TEST_F(StorageNoticeDesktopTest, RecoveryIsDismissedByKeyboard) {
  store.setOpening({.outcome = StoreOpening::Outcome::restored,
                    .message = "restored",
                    .copyTime = {},
                    .lostKeys = 2});
  settle();
  ASSERT_TRUE(has(QAccessible::AlertMessage));
  widget(QAccessible::PushButton, "Dismiss").setFocus();
  press(Qt::Key_Space);
  EXPECT_FALSE(has(QAccessible::AlertMessage));
}

}  // namespace
}  // namespace QEVSettings
