// SPDX-License-Identifier: MIT
#include "HistoryWindow.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "SecondProcess.hpp"
#include "foundation/UserDefaults.hpp"
#include "support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <variant>
#include <vector>

namespace QEVSettings {
namespace {

using headless::Element;
using headless::Key;
using viewkit::Role;

constexpr int kActions = 500;
constexpr std::array kTabs{"General", "Capture", "MITM Proxy", "Analyzer", "Fonts"};
constexpr std::array kTexts{"80", "443, 22", "70000", "tcp", "(tcp", "", "1500", "host.test", "2"};
constexpr std::array kRoles{Role::toggle,    Role::button,     Role::menuButton, Role::textField,
                            Role::colorWell, Role::fontPicker, Role::listItem};

// Uses the controls of all pages of one window at random. A second process writes to the same store
// meanwhile if it is asked to.
class HistoryWalk {
  std::mt19937_64 random_;

  std::size_t random(std::size_t count) { return random_() % count; }
  template <class Choices>
  const auto& oneOf(const Choices& choices) {
    return choices[random(choices.size())];
  }

public:
  explicit HistoryWalk(unsigned seed) : random_(seed) {
    store->setInteger(2, kPrefsSchemaVersion.name);
    store->setObject("a note", HistoryWindow::kNoteKey);
    store->setBool(false, HistoryWindow::kOptionKey);
  }

  void walk(bool withSecondProcess) {
    for (int i = 0; i < kActions; ++i) {
      if (withSecondProcess && random(4) == 0) changeElsewhere(i);
      if (random(6) == 0) window->selectTab(oneOf(kTabs));
      while (!useSomething()) {
      }
      window->settle();
    }
    // Texts that are still being typed are committed.
    for (const char* tab : kTabs) window->selectTab(tab);
    hear();
  }

  // The selected analyzer is what the window shows, and no setting.
  PreferenceDictionary settings() const {
    PreferenceDictionary all = store->dictionaryRepresentation();
    all.erase(std::string(kAnalyzerSelectedIndex.name));
    return all;
  }

  void hear() {
    store->readChanges();
    window->settle();
  }

private:
  const support::TemporaryFolder folder_;
  const std::filesystem::path path_ = folder_.path() / "preferences.sqlite";
  const QEVDependencies::QEVNetworkProtocolList factory_ = HistoryWindow::factoryList();
  SecondProcess other_{path_, factory_};

public:
  std::unique_ptr<foundation::UserDefaults> store = foundation::UserDefaults::open(path_);
  HistoryWindow window{*store, factory_, {.actions = std::size_t{2} * kActions}};
  // The last value of each key that the second process has changed.
  std::map<std::string, PreferenceValue> foreign;

private:
  // Returns whether there was a control of the kind that was chosen.
  bool useSomething() {
    const auto elements = window->findAll(oneOf(kRoles));
    if (elements.empty()) return false;
    use(oneOf(elements));
    return true;
  }

  void use(const Element& element) {
    switch (element.role()) {
      case Role::menuButton: {
        const auto items = window->menuItems(element);
        if (!items.empty()) oneOf(items).action();
        return;
      }
      case Role::textField: return type(element);
      case Role::colorWell:
        window->choose(element, appkit::RGBA{.red = fraction(), .green = fraction(), .blue = 0.5});
        return;
      case Role::fontPicker:
        window->choose(
            element,
            {.family = "Serif", .style = "", .pointSize = static_cast<double>(random(9) + 8)});
        return;
      default: window->click(element);
    }
  }

  void type(const Element& field) {
    window->click(field);
    if (!field.isFocused()) return;
    const std::string before = field.value();
    window->selectAll();
    if (random(2) == 0) window->press(Key::deleteBackward);
    window->type(oneOf(kTexts));
    const std::size_t end = random(3);
    if (end == 0) window->press(Key::enter);
    // In a field without a change the key would close the window.
    if (end == 1 && field.exists() && field.value() != before) window->press(Key::escape);
  }

  double fraction() { return static_cast<double>(random(11)) / 10; }

  // Writes values that nobody else writes.
  void changeElsewhere(int number) {
    const std::string text = "elsewhere " + std::to_string(number);
    switch (random(4)) {
      case 0: set(HistoryWindow::kNoteKey, text); break;
      case 1: set("com_velloquin_zorvantine_capture_filter", text); break;
      case 2:
        set(std::string(kFontPacketTable.name),
            PreferenceDictionary{
                {"family", "Test Mono"}, {"style", ""}, {"pointSize", 100.0 + number}});
        break;
      default:
        hear();
        other_.setPorts(HistoryWindow::kPortsKey, 0, std::to_string(10000 + number));
        store->readChanges();
        foreign.insert_or_assign(HistoryWindow::kPortsKey,
                                 *store->objectForKey(HistoryWindow::kPortsKey));
    }
    if (random(2) == 0) hear();
  }

  void set(const std::string& key, const PreferenceValue& value) {
    other_.set(key, value);
    foreign.insert_or_assign(key, value);
  }
};

// Return how many steps they took.
int undoAll(HistoryWalk& walk) {
  int steps = 0;
  for (; steps < 2 * kActions && walk.window.history->canUndo(); ++steps) walk.window.undo();
  EXPECT_FALSE(walk.window.history->canUndo());
  return steps;
}

int redoAll(HistoryWalk& walk) {
  int steps = 0;
  for (; steps < 2 * kActions && walk.window.history->canRedo(); ++steps) walk.window.redo();
  EXPECT_FALSE(walk.window.history->canRedo());
  return steps;
}

class HistoryWalkTest : public testing::TestWithParam<unsigned> {};

INSTANTIATE_TEST_SUITE_P(Seeds, HistoryWalkTest, testing::Range(1U, 7U));

TEST_P(HistoryWalkTest, UndoLeadsBackToTheStartAndRedoToTheEnd) {
  HistoryWalk walk(GetParam());
  const PreferenceDictionary start = walk.settings();
  walk.walk(false);
  const PreferenceDictionary end = walk.settings();
  EXPECT_GT(end.size(), 20U) << "the walk has changed too little";
  EXPECT_GT(undoAll(walk), 100);
  EXPECT_EQ(walk.settings(), start);
  EXPECT_GT(redoAll(walk), 100);
  EXPECT_EQ(walk.settings(), end);
  EXPECT_TRUE(walk.window.history->notice()->isEmpty());
}

TEST_P(HistoryWalkTest, ValuesOfASecondProcessAreNotOverwritten) {
  HistoryWalk walk(GetParam());
  PreferenceDictionary start = walk.settings();
  walk.walk(true);
  const PreferenceDictionary end = walk.settings();
  EXPECT_EQ(walk.foreign.size(), 4U) << "the second process has changed too little";
  undoAll(walk);
  for (const auto& [key, value] : walk.foreign) start.insert_or_assign(key, value);
  EXPECT_EQ(walk.settings(), start);
  redoAll(walk);
  EXPECT_EQ(walk.settings(), end);
}

}  // namespace
}  // namespace QEVSettings
