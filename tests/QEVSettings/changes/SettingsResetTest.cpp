// SPDX-License-Identifier: MIT
#include "HistoryWindow.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "foundation/UserDefaults.hpp"

#include <gmock/gmock.h>

#include <string>

namespace QEVSettings {
namespace {

using headless::Key;
using ::testing::HasSubstr;
using viewkit::Role;

class SettingsResetTest : public testing::Test {
protected:
  SettingsResetTest() {
    store->setObject("NSAppearanceNameAqua", kAppearanceName.name);
    store->setBool(false, kAppearanceUseSystem.name);
    store->setObject("Asia/Tokyo", kPrefTimezoneString.name);
    store->setObject("tcp", "com_velloquin_zorvantine_capture_filter");
    store->setBool(false, HistoryWindow::kOptionKey);
    // Equal to its default, and no setting that a page shows.
    store->setBool(false, "com_velloquin_zorvantine_capture_usesRingOfFiles");
    store->setObject("https://updates.test/feed", "com_velloquin_zorvantine_updateFeed");
  }

  void chooseFromMenu(const char* title) {
    window->chooseFromContextMenu(window->find(Role::tabList), title);
  }

  const std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  HistoryWindow window{*store};
};

TEST_F(SettingsResetTest, PageIsResetAfterAQuestionAndComesBackWithOneUndo) {
  const auto before = store->dictionaryRepresentation();
  chooseFromMenu("Reset This Page…");
  EXPECT_EQ(window.notice(),
            "Reset this page to its defaults? Settings that change: 2. One undo brings them back.");
  EXPECT_EQ(store->dictionaryRepresentation(), before);
  window->click(window->find(Role::button, "Reset"));
  EXPECT_EQ(window.notice(), "");
  EXPECT_FALSE(store->objectForKey(kPrefTimezoneString.name));
  EXPECT_FALSE(store->objectForKey(kAppearanceName.name));
  EXPECT_TRUE(store->objectForKey("com_velloquin_zorvantine_capture_filter"));
  EXPECT_GT(window.delegate->calls, 0);
  EXPECT_EQ(window.history->undoTitle(), "Undo “Reset This Page”");
  window.undo();
  EXPECT_EQ(store->dictionaryRepresentation(), before);
}

TEST_F(SettingsResetTest, EverythingIsResetAndComesBackWithOneUndo) {
  window->selectTab("Analyzer");
  const auto before = store->dictionaryRepresentation();
  chooseFromMenu("Reset All Settings…");
  EXPECT_THAT(window.notice(), HasSubstr("Settings that change: 4."));
  // The page has a button of this name too.
  window->click(window->findAll(Role::button).front());
  auto left = store->dictionaryRepresentation();
  left.erase(std::string(kAnalyzerSelectedIndex.name));
  EXPECT_EQ(left.size(), 1U);
  EXPECT_TRUE(left.contains("com_velloquin_zorvantine_updateFeed"));
  chooseFromMenu("Undo “Reset All Settings”");
  EXPECT_EQ(store->dictionaryRepresentation(), before);
  chooseFromMenu("Redo “Reset All Settings”");
  EXPECT_FALSE(store->objectForKey(kPrefTimezoneString.name));
}

TEST_F(SettingsResetTest, QuestionIsAnsweredWithNoByItsButtonAndByEscape) {
  const auto before = store->dictionaryRepresentation();
  chooseFromMenu("Reset All Settings…");
  window->click(window->find(Role::button, "Cancel"));
  EXPECT_EQ(window.notice(), "");
  chooseFromMenu("Reset All Settings…");
  window->press(Key::escape);
  EXPECT_EQ(window.notice(), "");
  EXPECT_TRUE(window->isOpen());
  EXPECT_EQ(store->dictionaryRepresentation(), before);
  EXPECT_FALSE(window.history->canUndo());
}

TEST_F(SettingsResetTest, AnalyzerPageIsThatOfTheSelectedAnalyzer) {
  window->selectTab("Analyzer");
  window->click(window->find(Role::listItem, "Bare"));
  chooseFromMenu("Reset This Page…");
  EXPECT_EQ(window.notice(), "The settings of this page have their defaults already.");
  window->click(window->find(Role::button, "Dismiss"));
  window->click(window->find(Role::listItem, "Web"));
  chooseFromMenu("Reset This Page…");
  EXPECT_THAT(window.notice(), HasSubstr("Settings that change: 1."));
}

TEST_F(SettingsResetTest, RefusedListIsReportedAndTheRestIsReset) {
  window->selectTab("Analyzer");
  window->click(window->findAll(Role::textField)[1]);
  window->selectAll();
  window->type("8000");
  window->press(Key::enter);
  window.analyzer->refuse = [] { throw QEVDependencies::QEVError::analyzerRefusedChange; };
  chooseFromMenu("Reset This Page…");
  window->click(window->findAll(Role::button).front());
  EXPECT_THAT(window.notice(), HasSubstr("“Protocol Ports” was not reset: "));
  EXPECT_TRUE(store->objectForKey(HistoryWindow::kPortsKey));
  EXPECT_FALSE(store->objectForKey(HistoryWindow::kOptionKey));
}

TEST(WindowWithoutHistoryTest, HasNeitherUndoNorResets) {
  HostParts host;
  headless::Window window(host.settingsView(QEVSettingsView::Tabs::general),
                          viewkit::Environment{.defaultStore = host.store});
  window.click(window.find(Role::button, "Light"));
  const auto stored = host.store.dictionaryRepresentation();
  window.press(Key::z, appkit::Event::control);
  EXPECT_EQ(host.store.dictionaryRepresentation(), stored);
  EXPECT_FALSE(window.openContextMenu(window.find(Role::tabList)));
}

}  // namespace
}  // namespace QEVSettings
