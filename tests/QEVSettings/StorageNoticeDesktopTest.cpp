#include "HostParts.hpp"
#include "qt/WindowFixture.hpp"

#include <gmock/gmock.h>

#include <vector>

namespace QEVSettings {
namespace {

std::vector<QString> spokenAlerts;

void recordAlerts(QAccessibleEvent* event) {
  if (event->type() != QAccessible::Alert || !event->accessibleInterface()) return;
  spokenAlerts.push_back(event->accessibleInterface()->text(QAccessible::Name));
}

// The bars in a real window.
class StorageNoticeDesktopTest : public qt::WindowFixture, protected HostParts {
protected:
  void SetUp() override {
    QAccessible::setActive(true);
    spokenAlerts.clear();
    useStore(store);
    open(settingsView(QEVSettingsView::Tabs::general));
    QAccessible::installUpdateHandler(recordAlerts);
  }
  void TearDown() override {
    QAccessible::installUpdateHandler(nullptr);
    WindowFixture::TearDown();
  }

  void report(std::optional<StorageProblem> problem) {
    store.setStorageProblem(problem);
    settle();
  }
};

TEST_F(StorageNoticeDesktopTest, EachProblemIsSpokenOnceAndTheWindowGrowsForIt) {
  const int height = topLevel().height();
  report(StorageProblem::diskFull);
  EXPECT_EQ(topLevel().height(), topLevel().minimumHeight()) << "no control is covered or cut off";
  EXPECT_GT(topLevel().height(), height);
  EXPECT_TRUE(topLevel().rect().contains(
      topLevel().mapFromGlobal(find(QAccessible::AlertMessage).rect().center())));

  report(StorageProblem::busy);
  ASSERT_EQ(spokenAlerts.size(), 2U);
  EXPECT_TRUE(spokenAlerts[0].contains("the disk is full"));
  EXPECT_TRUE(spokenAlerts[1].contains("another program"));

  report(std::nullopt);
  EXPECT_FALSE(has(QAccessible::AlertMessage));
  EXPECT_EQ(topLevel().height(), height);
  EXPECT_EQ(spokenAlerts.size(), 2U);
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
