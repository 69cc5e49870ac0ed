#include "SettingsHost.hpp"
#include "commands/Commands.hpp"
#include "headless/Description.hpp"
#include "headless/Window.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const DescribeCommand& command, Console& console) {
  if (auto failure = storeFailure(Console::store())) return failure;
  const SettingsHost host(command.window, Console::store());
  const headless::Window window(host.settingsView(command.tab), host.environment());
  const auto description = window.describe();
  if (command.format == OutputFormat::json) {
    console.out << headless::jsonDescription(description) << '\n';
  } else {
    console.out << headless::textDescription(description);
  }
  return std::nullopt;
}

}  // namespace zorvantine
