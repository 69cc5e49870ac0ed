// SPDX-License-Identifier: MIT
// The window of recent changes, opened from the main window's menu, in a forked process.

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "process/Interruption.hpp"
#include "support/TemporaryFolder.hpp"
#include "window/DesktopHost.hpp"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <cstdlib>
#include <iostream>

namespace {

using zorvantine::DesktopHost;
using zorvantine::Interruption;

QMainWindow* mainWindow() {
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (auto* window = qobject_cast<QMainWindow*>(each)) return window;
  }
  return nullptr;
}

void choose(const QString& title) {
  for (QAction* menu : mainWindow()->menuBar()->actions()) {
    for (QAction* each : menu->menu()->actions()) {
      if (each->text() == title) each->trigger();
    }
  }
}

int openWindows(const QString& title) {
  int count = 0;
  for (const QWidget* each : QApplication::topLevelWidgets())
    count += each->isVisible() && each->windowTitle() == title ? 1 : 0;
  return count;
}

[[noreturn]] void openTwiceAndClose() {
  const Interruption interruption;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  {
    zorvantine::WindowOptions options;
    options.language = "en";
    DesktopHost host(options, zorvantine::ProgramPreferences::inForce(),
                     qt::Application::Display::screen);
    QTimer::singleShot(0, qApp, [] {
      choose("Recent Changes…");
      choose("Recent Changes…");
      QTimer::singleShot(50, qApp, [] {
        std::cerr << openWindows("Recent Changes") << " open\n";
        // Ends the program, although the other window is open.
        mainWindow()->close();
      });
    });
    host.runMainWindow(interruption);
    std::cerr << openWindows("Recent Changes") << " left\n";
  }
  std::exit(0);
}

TEST(RecentChangesWindowDeathTest, OpensOnceFromTheMenuAndClosesWithTheMainWindow) {
  const support::TemporaryFolder folder;
  ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
  EXPECT_EXIT(
      {
        QEVSettings::HostIdentity::set({.id = "zorvantine"});
        openTwiceAndClose();
      },
      testing::ExitedWithCode(0), "1 open\n0 left");
}

}  // namespace
