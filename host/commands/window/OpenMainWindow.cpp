#include "commands/Commands.hpp"
#include "commands/Interruption.hpp"
#include "qt/Application.hpp"
#include "window/DesktopHost.hpp"

namespace zorvantine {

Failed run(const RunCommand& command, Console&) {
  if (!qt::Application::hasDisplay()) {
    return Failure{
        .message =
            "no display can be reached to open the window on; set DISPLAY or WAYLAND_DISPLAY"};
  }
  const Interruption interruption;
  DesktopHost(command.window, Console::preferences(), qt::Application::Display::screen)
      .runMainWindow(interruption);
  return std::nullopt;
}

}  // namespace zorvantine
