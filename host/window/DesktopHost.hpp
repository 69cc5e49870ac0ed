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

// The launched application on a desktop: its event loop and its settings windows. One a process, on
// the main thread.
class DesktopHost {
public:
  // The store outlives the host. When the display that was asked for is out of reach, the program
  // starts again without one.
  DesktopHost(const WindowOptions& options, foundation::UserDefaults& store,
              qt::Application::Display display);
  ~DesktopHost();
  DesktopHost(const DesktopHost&) = delete;
  DesktopHost& operator=(const DesktopHost&) = delete;

  // A settings window, not yet open.
  std::unique_ptr<qt::Window> makeWindow(Tab tab) const;

  // Opens a settings window and runs until it is closed. The interruption, which must be older than
  // every thread of the process and so than the host, closes it too.
  void run(Tab tab, const Interruption& interruption);

  // Opens the main window and runs until it is closed. Settings windows come from it, one at a
  // time.
  void runMainWindow(const Interruption& interruption);

private:
  viewkit::Environment environment() const;
  void openSettings();

  QtMessages messages_;
  qt::Application application_;
  std::optional<SettingsHost> host_;
  // That of the main window.
  std::unique_ptr<qt::Window> settings_;
};

}  // namespace zorvantine
