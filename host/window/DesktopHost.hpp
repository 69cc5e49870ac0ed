// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/LayeredPreferences.hpp"
#include "commandline/WindowOptions.hpp"
#include "foundation/UserDefaults.hpp"
#include "pages/SettingsHost.hpp"
#include "process/Interruption.hpp"
#include "qt/Application.hpp"
#include "qt/Window.hpp"
#include "window/QtMessages.hpp"

#include <memory>
#include <optional>
#include <string>

namespace zorvantine {

class MainWindow;

// The application on a desktop: its event loop and its settings windows. One per process, main
// thread.
class DesktopHost {
public:
  // The store outlives the host. When the display cannot be reached, the program starts again
  // without one.
  DesktopHost(WindowOptions options, QEVSettings::PreferencesStore& store,
              qt::Application::Display display);
  ~DesktopHost();
  DesktopHost(const DesktopHost&) = delete;
  DesktopHost& operator=(const DesktopHost&) = delete;

  // Makes a settings window that is not open yet.
  std::unique_ptr<qt::Window> makeWindow(Tab tab) const;

  // Opens a settings window and runs until it is closed, by the user or by the interruption. The
  // interruption must be made before the process's first thread, and so before the host.
  void run(Tab tab, const Interruption& interruption);

  // Opens the main window and runs until it is closed. It opens settings windows, one at a time.
  void runMainWindow(const Interruption& interruption);

private:
  // The store of a profile, between the layers of administrators and the command line.
  struct OpenProfile {
    std::unique_ptr<foundation::UserDefaults> store;
    std::unique_ptr<QEVSettings::LayeredPreferences> preferences;
  };

  // Of the settings windows, and of the main window, which is no part of their history.
  viewkit::Environment settingsEnvironment() const;
  viewkit::Environment environment() const;
  QEVSettings::PreferencesStore& preferences() const;
  foundation::UserDefaults& person() const;
  std::unique_ptr<qt::Window> makeRecentChangesWindow() const;
  void openSettings();
  void openRecentChanges();
  void start();
  void switchTo(const std::string& profile, MainWindow& main);

  QtMessages messages_;
  qt::Application application_;
  WindowOptions options_;
  QEVSettings::PreferencesStore& store_;
  // The profile that was switched to; empty for the store that the process began with.
  OpenProfile profile_;
  std::optional<SettingsHost> host_;
  // The settings window that the main window opened; null while none is open.
  std::unique_ptr<qt::Window> settings_;
  // The window of recent changes; null while it is not open.
  std::unique_ptr<qt::Window> recentChanges_;
};

}  // namespace zorvantine
