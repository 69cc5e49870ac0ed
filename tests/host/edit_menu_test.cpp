// SPDX-License-Identifier: MIT
// The Edit menu of the main window, in a forked process.

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVSettings/RecordingPreferences.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/UserDefaults.hpp"
#include "qt/Application.hpp"
#include "window/EditMenu.hpp"

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include <array>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

namespace {

using QEVSettings::ActionHistory;
using QEVSettings::RecordingPreferences;
using QEVSettings::SettingsCatalogue;
using QEVSettings::SettingsReset;
using QEVSettings::SettingWriter;

constexpr auto kKey = QEVCoreComponents::QEVCaptureViewModel::kPromiscuousKey;

// One line: the titles, the disabled ones in brackets.
void note(const QMenu& menu) {
  QCoreApplication::processEvents();
  for (const QAction* each : menu.actions()) {
    if (each->isSeparator()) continue;
    const std::string title = each->text().toStdString();
    std::cerr << (each->isEnabled() ? title : "[" + title + "]") << ", ";
  }
  std::cerr << '\n';
}

QAction& withKey(const QMenu& menu, const QKeySequence& key) {
  for (QAction* each : menu.actions()) {
    if (each->shortcut() == key) return *each;
  }
  std::exit(2);
}

[[noreturn]] void useMenu() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  std::string name = "test";
  std::array<char*, 2> words{name.data(), nullptr};
  int count = 1;
  const qt::Application application(count, words.data(), qt::Application::Display::screen);
  const auto store = foundation::UserDefaults::inMemory();
  RecordingPreferences recording(*store);
  const auto catalogue = std::make_shared<SettingsCatalogue>();
  for (auto& each : QEVCoreComponents::QEVCaptureViewModel::descriptors()) catalogue->add(each);
  const auto history = std::make_shared<ActionHistory>(
      recording, std::make_shared<SettingWriter>(recording), catalogue);
  const auto reset = std::make_shared<SettingsReset>(history, catalogue);

  const QMainWindow window;
  int openings = 0;
  zorvantine::EditMenu edit(*window.menuBar(), [&openings] { ++openings; });
  const QMenu& menu = *window.menuBar()->actions().first()->menu();
  edit.setCommands(history, reset);
  note(menu);
  recording.setBool(false, kKey);
  note(menu);
  withKey(menu, QKeySequence("Ctrl+Z")).trigger();
  std::cerr << (store->find(kKey) == nullptr ? "undone" : "left") << '\n';
  note(menu);
  withKey(menu, QKeySequence("Ctrl+Shift+Z")).trigger();
  menu.actions().last()->trigger();
  std::cerr << history->notice()->text() << '\n';
  history->notice()->confirm();
  note(menu);
  std::cerr << openings << " openings\n";
  edit.setCommands(nullptr, nullptr);
  note(menu);
  std::exit(0);
}

TEST(EditMenuDeathTest, NamesWhatItUndoesAndAsksBeforeAReset) {
  EXPECT_EXIT(
      {
        foundation::Bundle::setPreferredLanguages({"en"});
        useMenu();
      },
      testing::ExitedWithCode(0),
      "\\[Undo\\], \\[Redo\\], Reset This Page…, Reset All Settings…, \n"
      "Undo “Promiscuous mode”, \\[Redo\\], .*\n"
      "undone\n"
      "\\[Undo\\], Redo “Promiscuous mode”, .*\n"
      "Reset all settings to their defaults\\? Settings that change: 1\\..*\n"
      "Undo “Reset All Settings”, \\[Redo\\], .*\n"
      "3 openings\n"
      "\\[.*\\], \\[.*\\], \\[Reset This Page…\\], \\[Reset All Settings…\\], \n");
}

}  // namespace
