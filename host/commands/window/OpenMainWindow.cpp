// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "foundation/Translation.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "process/Interruption.hpp"
#include "window/DesktopDisplay.hpp"
#include "window/DesktopHost.hpp"

namespace zorvantine {

using foundation::translated;

Failed run(const RunCommand& command, Console&) {
  switch (desktopDisplay()) {
    case DesktopDisplay::usable: break;
    case DesktopDisplay::none:
      return Failure{
          .message = translated("no display can be reached to open the window on; set DISPLAY or "
                                "WAYLAND_DISPLAY")};
    case DesktopDisplay::needsWaylandPlugin:
      return Failure{
          .message = translated("a window on Wayland needs the package qt6-wayland; install it")};
  }
  const Interruption interruption;
  DesktopHost(command.window, ProgramPreferences::inForce(), qt::Application::Display::screen)
      .runMainWindow(interruption);
  return std::nullopt;
}

}  // namespace zorvantine
