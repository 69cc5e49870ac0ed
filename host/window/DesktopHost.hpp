#pragma once

#include "SettingsHost.hpp"
#include "commandline/WindowOptions.hpp"
#include "commands/Interruption.hpp"
#include "foundation/UserDefaults.hpp"
#include "qt/Application.hpp"
#include "qt/Window.hpp"
#include "window/QtMessages.hpp"

#include <memory>
#include <optional>

namespace zorvantine {

// The application on a desktop: its event loop and its settings windows. One per process, main
// thread.
class DesktopHost {
public:
  // The store outlives the host. When the display cannot be reached, the program starts again
  // without one.
  DesktopHost(const WindowOptions& options, foundation::UserDefaults& store,
              qt::Application::Display display);
  ~DesktopHost();
  DesktopHost(const DesktopHost&) = delete;
  DesktopHost& operator=(const DesktopHost&) = delete;

  // Makes a settings window that is not open yet.
  std::unique_ptr<qt::Window> makeWindow(Tab tab) const;

  // Opens a settings window and runs until it is closed, by the person or by the interruption. The
  // interruption must be made before the process's first thread, and so before the host.
  void run(Tab tab, const Interruption& interruption);

  // Opens the main window and runs until it is closed. It opens settings windows, one at a time.
  void runMainWindow(const Interruption& interruption);

private:
  viewkit::Environment environment() const;
  void openSettings();

  QtMessages messages_;
  qt::Application application_;
  std::optional<SettingsHost> host_;
  // The settings window that the main window opened; null while none is open.
  std::unique_ptr<qt::Window> settings_;
};

}  // namespace zorvantine
