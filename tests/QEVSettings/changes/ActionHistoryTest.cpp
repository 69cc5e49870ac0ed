// SPDX-License-Identifier: MIT
#include "HistoryWindow.hpp"
#include "QEVCommonTools/ColorRawValue.hpp"
#include "QEVDependencies/QEVProtocolKonstants.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "foundation/MainQueue.hpp"
#include "foundation/NotificationCenter.hpp"
#include "foundation/UserDefaults.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>

namespace QEVSettings {
namespace {

using headless::Key;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using viewkit::Role;

const std::string kCaptureKey = "com_velloquin_zorvantine_capture_promiscuous";
const std::string kFilterKey = "com_velloquin_zorvantine_capture_filter";

class ActionHistoryTest : public testing::Test {
protected:
  headless::Element toggle(const char* tab, const char* label) {
    window->selectTab(tab);
    return window->find(Role::toggle, label);
  }
  headless::Element portField(std::size_t row) {
    window->selectTab("Analyzer");
    auto fields = window->findAll(Role::textField);
    std::erase_if(
        fields, [](const headless::Element& each) { return each.label() == HistoryWindow::kNote; });
    return fields.at(row);
  }
  void typePorts(std::size_t row, const char* text) {
    window->click(portField(row));
    window->selectAll();
    window->type(text);
    window->press(Key::enter);
    window->makeFirstResponder(nullptr);
  }
  std::vector<std::string> storedPorts() const {
    std::vector<std::string> texts;
    for (const auto& each :
         QEVModels::AnalyzerPortsStore(HistoryWindow::kPortsKey, *store).decode({}))
      texts.push_back(each->protocolPorts.get());
    return texts;
  }

  const std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::inMemory();
  HistoryWindow window{*store};
};

TEST_F(ActionHistoryTest, AppearanceIsOneActionOfTwoKeys) {
  window->click(window->find(Role::button, "Light"));
  window->click(window->find(Role::button, "Auto"));
  EXPECT_EQ(window.history->undoTitle(), "Undo “Appearance”");
  const int calls = window.delegate->calls;
  window.undo();
  EXPECT_TRUE(window->find(Role::button, "Light").isSelected().value());
  EXPECT_EQ(window.delegate->calls, calls + 1);
  window.undo();
  EXPECT_FALSE(store->objectForKey(kAppearanceName.name));
  EXPECT_FALSE(store->objectForKey(kAppearanceUseSystem.name));
  EXPECT_FALSE(window.history->canUndo());
  window.redo();
  window.redo();
  EXPECT_TRUE(window->find(Role::button, "Auto").isSelected().value());
}

TEST_F(ActionHistoryTest, DraggedColorIsOneAction) {
  window->selectTab("Analyzer");
  const auto well =
      std::get<viewkit::ColorWellControl>(*window->find(Role::colorWell).content().control());
  const auto cancel = well.checkpoint();
  for (const double red : {0.1, 0.2, 0.3}) {
    well.choose({.red = red, .green = 0, .blue = 0});
    window->settle();
  }
  EXPECT_EQ(window.history->undoTitle(), "Undo “Packet color”");
  window.undo();
  EXPECT_FALSE(store->objectForKey(HistoryWindow::kColorKey));
  EXPECT_FALSE(window.history->canUndo());
  window.redo();

  // Another opening of the chooser is another action; a cancelled one is none.
  const auto cancelSecond = well.checkpoint();
  well.choose({.red = 1, .green = 1, .blue = 1});
  window->settle();
  cancelSecond();
  window->settle();
  window.undo();
  EXPECT_FALSE(store->objectForKey(HistoryWindow::kColorKey));
}

TEST_F(ActionHistoryTest, TypedTextIsOneActionAndHasItsOwnUndoWhileItIsEdited) {
  window->selectTab("Analyzer");
  window->click(window->find(Role::textField, HistoryWindow::kNote));
  window->type("abc");
  window.undo();
  EXPECT_EQ(store->stringForKey(HistoryWindow::kNoteKey), "abc") << "the key belongs to the text";
  window->makeFirstResponder(nullptr);
  window.undo();
  EXPECT_FALSE(store->objectForKey(HistoryWindow::kNoteKey));
  EXPECT_FALSE(window.history->canUndo());
  window.redo();
  EXPECT_EQ(store->stringForKey(HistoryWindow::kNoteKey), "abc");
}

TEST_F(ActionHistoryTest, CommittedTextAndTheClickThatEndsItAreTwoActions) {
  window->selectTab("Capture");
  window->click(window->find(Role::textField, "Capture filter"));
  window->type("tcp");
  window->click(window->find(Role::toggle, "Promiscuous mode"));
  window.undo();
  EXPECT_FALSE(store->objectForKey(kCaptureKey));
  EXPECT_EQ(store->stringForKey(kFilterKey), "tcp");
  window.undo();
  EXPECT_FALSE(store->objectForKey(kFilterKey));
}

TEST_F(ActionHistoryTest, UndoOfPortsTellsTheAnalyzerAndPostsTheNotifications) {
  typePorts(0, "8000");
  window.journal.clear();
  auto& center = foundation::NotificationCenter::defaultCenter();
  const auto post = [&](int index) {
    return center.observe(rawValue(static_cast<QEVDependencies::QEVProtocolKonstants>(index)),
                          [this, index](std::string_view) {
                            window.journal.push_back("notify " + std::to_string(index));
                          });
  };
  const auto list = post(9);
  const auto ports = post(3);
  const auto stored = store->observe(
      HistoryWindow::kPortsKey, [this](std::string_view) { window.journal.emplace_back("store"); });
  window.undo();
  EXPECT_THAT(window.journal, ElementsAre("replace HTTP 8000 1 by HTTP 80 1, ports",
                                          "set default settings", "store", "notify 9", "notify 3"));
  EXPECT_FALSE(store->objectForKey(HistoryWindow::kPortsKey));
  EXPECT_EQ(portField(0).value(), "80");
  window.journal.clear();
  window.redo();
  EXPECT_THAT(window.journal, ElementsAre("replace HTTP 80 1 by HTTP 8000 1, ports", "store",
                                          "notify 9", "notify 3"));
  EXPECT_EQ(portField(0).value(), "8000");
}

TEST_F(ActionHistoryTest, ResetOfPortsIsOneAction) {
  typePorts(0, "8000");
  typePorts(1, "9000");
  window->click(window->find(Role::button, "Reset"));
  EXPECT_THAT(storedPorts(), ElementsAre("80", "3128,8080"));
  window.undo();
  EXPECT_THAT(storedPorts(), ElementsAre("8000", "9000"));
  EXPECT_EQ(portField(1).value(), "9000");
}

TEST_F(ActionHistoryTest, RefusedUndoIsShownOnItsRowAndIsSkipped) {
  window->click(toggle("Capture", "Promiscuous mode"));
  typePorts(0, "8000");
  window.analyzer->refuse = [] { throw QEVDependencies::QEVError::portsTakenByOtherProtocol; };
  window.undo();
  EXPECT_THAT(storedPorts(), ElementsAre("8000", "3128,8080"));
  EXPECT_THAT(window.notice(), HasSubstr("“Protocol Ports” was not undone: "));
  const auto alerts = window->findAll(Role::alert);
  EXPECT_TRUE(std::ranges::any_of(
      alerts, [](const headless::Element& each) { return each.label().starts_with("Error"); }));
  window.undo();
  EXPECT_FALSE(store->objectForKey(kCaptureKey));
  EXPECT_THAT(window.notice(), Not(HasSubstr("not undone"))) << "it goes with the next action";
}

TEST_F(ActionHistoryTest, RefusedListIsTakenBackAsAWhole) {
  typePorts(0, "8000");
  typePorts(1, "9000");
  const auto before = store->objectForKey(HistoryWindow::kPortsKey);
  window.journal.clear();
  window.analyzer->refuse = [&] {
    if (window.journal.size() == 2) throw QEVDependencies::QEVError::tooManyPorts;
  };
  EXPECT_FALSE(window.writer->write(HistoryWindow::kPortsKey, std::nullopt));
  EXPECT_EQ(store->objectForKey(HistoryWindow::kPortsKey), before);
  EXPECT_THAT(window.journal, ElementsAre("replace HTTP 8000 1 by HTTP 80 1, ports",
                                          "replace Proxy 9000 1 by Proxy 3128,8080 1, ports",
                                          "replace HTTP 80 1 by HTTP 8000 1, ports"));
}

TEST_F(ActionHistoryTest, ChangeFromElsewhereIsKeptAndTheStepIsSkipped) {
  window->click(toggle("Analyzer", "Compute checksums"));
  window->click(toggle("Capture", "Promiscuous mode"));
  store->setBool(true, kCaptureKey);
  window.undo();
  EXPECT_TRUE(store->boolForKey(kCaptureKey));
  EXPECT_EQ(window.notice(),
            "“Promiscuous mode” was not undone, because it has been changed elsewhere since.");
  window->press(Key::escape);
  EXPECT_EQ(window.notice(), "");
  EXPECT_TRUE(window->isOpen());
  window.undo();
  EXPECT_FALSE(store->objectForKey(HistoryWindow::kOptionKey));
  EXPECT_FALSE(window.history->canUndo());
}

TEST_F(ActionHistoryTest, UpdateSettingIsUndoneAtTheUpdater) {
  const auto& updater = window.updater->updaterController().updater();
  window->click(window->find(Role::toggle, "Include anonymous system profile"));
  EXPECT_TRUE(updater.sendsSystemProfile());
  window.undo();
  EXPECT_FALSE(updater.sendsSystemProfile());
  EXPECT_FALSE(store->objectForKey(sparkle::SPUUpdater::kSendsSystemProfileKey));
  window.redo();
  EXPECT_TRUE(updater.sendsSystemProfile());
  EXPECT_EQ(window->find(Role::toggle, "Include anonymous system profile").value(), "on");
}

TEST_F(ActionHistoryTest, PreviewOfAFontFollowsTheUndo) {
  window->selectTab("Fonts");
  const auto pickers = window->findAll(Role::fontPicker);
  window->choose(pickers[1], {.family = "Serif", .style = "", .pointSize = 31});
  EXPECT_TRUE(window->findText("Serif 31.0").exists());
  window.undo();
  EXPECT_FALSE(window->findText("Serif 31.0").exists());
  EXPECT_FALSE(store->objectForKey(kFontConsoleRaw.name));
}

TEST_F(ActionHistoryTest, NewActionDropsWhatCouldBeRedone) {
  window->click(toggle("Capture", "Promiscuous mode"));
  window.undo();
  EXPECT_EQ(window.history->redoTitle(), "Redo “Promiscuous mode”");
  window->click(toggle("Capture", "Ring of files"));
  EXPECT_FALSE(window.history->canRedo());
  EXPECT_EQ(window.history->redoTitle(), "Redo");
}

TEST(ActionHistoryLimitsTest, OldestActionsGoFirst) {
  const auto store = foundation::UserDefaults::inMemory();
  RecordingPreferences recording(*store);
  const auto writer = std::make_shared<SettingWriter>(recording);
  ActionHistory history(recording, writer, nullptr);
  const auto act = [&](const std::string& key, const std::string& value) {
    recording.setObject(value, key);
    foundation::MainQueue::mainQueue().drainAll();
  };
  for (int i = 0; i < 150; ++i) act("a", std::to_string(i));
  int undone = 0;
  for (; history.canUndo(); ++undone) history.undo();
  EXPECT_EQ(undone, 100);
  EXPECT_EQ(store->stringForKey("a"), "49");

  // Four actions of a megabyte leave room for no fifth; a larger one is kept alone.
  for (const char* key : {"b", "c", "d", "e", "f"})
    act(key, std::string(std::size_t{1} << 20, 'x'));
  for (undone = 0; history.canUndo(); ++undone) history.undo();
  EXPECT_EQ(undone, 3);
  act("b", std::string(std::size_t{5} << 20, 'y'));
  EXPECT_TRUE(history.canUndo());
}

TEST(ActionHistoryLimitsTest, LockedSettingIsNotUndone) {
  struct Locking final : PreferencesStore {
    explicit Locking(PreferencesStore& store) : store(store) {}
    const PreferenceValue* find(std::string_view key) const override { return store.find(key); }
    PreferenceDictionary dictionaryRepresentation() const override {
      return store.dictionaryRepresentation();
    }
    void setObject(PreferenceValue value, std::string_view key) override {
      if (!isLocked(key)) store.setObject(std::move(value), key);
    }
    void removeObject(std::string_view key) override {
      if (!isLocked(key)) store.removeObject(key);
    }
    bool isLocked(std::string_view key) const override { return key == locked; }
    Subscription observe(std::string_view key, Observer observer) override {
      return store.observe(key, std::move(observer));
    }
    Subscription observeAll(Observer observer) override {
      return store.observeAll(std::move(observer));
    }
    PreferencesStore& store;
    std::string locked;
  };
  const auto store = foundation::UserDefaults::inMemory();
  Locking locking(*store);
  RecordingPreferences recording(locking);
  ActionHistory history(recording, std::make_shared<SettingWriter>(recording), nullptr);
  recording.setBool(true, kFilterKey);
  locking.locked = kFilterKey;
  history.undo();
  EXPECT_TRUE(store->boolForKey(kFilterKey));
  EXPECT_THAT(history.notice()->text(), HasSubstr("Managed by your organization"));
  recording.setBool(false, kFilterKey);
  EXPECT_FALSE(history.canUndo()) << "a refused write is no action";
}

}  // namespace
}  // namespace QEVSettings
