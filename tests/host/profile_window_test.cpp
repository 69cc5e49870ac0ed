// SPDX-License-Identifier: MIT
// Profiles in the main window's menu, in a forked process.

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "appkit/Application.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "process/Interruption.hpp"
#include "profiles/Profiles.hpp"
#include "support/TemporaryFolder.hpp"
#include "window/DesktopHost.hpp"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

namespace {

using zorvantine::DesktopHost;
using zorvantine::Interruption;

constexpr const char* kAppearance = "com_velloquin_zorvantine_appearanceName";

QAction* actionNamed(const QString& title, const QWidget& menu) {
  for (QAction* each : menu.actions()) {
    if (each->text() == title) return each;
  }
  return nullptr;
}

// The menu of profiles, filled as when the user opens it.
QMenu* profileMenu() {
  for (QWidget* each : QApplication::topLevelWidgets()) {
    const auto* window = qobject_cast<QMainWindow*>(each);
    if (window == nullptr) continue;
    const QAction* const file = actionNamed("&File", *window->menuBar());
    QAction* const profiles = file != nullptr ? actionNamed("Profile", *file->menu()) : nullptr;
    if (profiles == nullptr) continue;
    emit profiles->menu()->aboutToShow();
    return profiles->menu();
  }
  return nullptr;
}

std::string checkedProfile() {
  for (const QAction* each : profileMenu()->actions()) {
    if (each->isChecked()) return each->text().toStdString();
  }
  return "none";
}

void note() {
  const auto appearance = appkit::Application::sharedApplication().appearance();
  std::cerr << checkedProfile() << (appearance == appkit::Appearance::dark ? " dark" : " light")
            << '\n';
}

[[noreturn]] void switchProfiles() {
  const Interruption interruption;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  {
    zorvantine::WindowOptions options;
    options.language = "en";
    DesktopHost host(options, zorvantine::ProgramPreferences::inForce(),
                     qt::Application::Display::screen);
    // Each choice takes effect in a later turn of the event loop.
    QTimer::singleShot(0, qApp, [] {
      note();
      actionNamed("plant", *profileMenu())->trigger();
      QTimer::singleShot(50, qApp, [] {
        note();
        actionNamed("standard", *profileMenu())->trigger();
        QTimer::singleShot(50, qApp, [] {
          note();
          qt::Application::quit();
        });
      });
    });
    host.runMainWindow(interruption);
  }
  std::exit(0);
}

TEST(ProfileMenuDeathTest, SwitchesTheStoreOfTheWindowsWhileTheyRun) {
  const support::TemporaryFolder folder;
  ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
  EXPECT_EXIT(
      {
        using foundation::UserDefaults;
        QEVSettings::HostIdentity::set({.id = "zorvantine"});
        if (!zorvantine::createProfile("plant", "")) std::exit(1);
        UserDefaults::open(zorvantine::profileFile("plant"))
            ->setObject("NSAppearanceNameDarkAqua", kAppearance);
        UserDefaults::standardUserDefaults().setObject("NSAppearanceNameAqua", kAppearance);
        switchProfiles();
      },
      testing::ExitedWithCode(0), "standard light\nplant dark\nstandard light");
}

}  // namespace
