// SPDX-License-Identifier: MIT
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "headless/Description.hpp"
#include "headless/Window.hpp"
#include "pages/SettingsHost.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "sparkle/UpdaterConfiguration.hpp"

#include <ostream>
#include <utility>

namespace zorvantine {

Failed run(const DescribeCommand& command, Console& console) {
  // Showing a page migrates the store and selects an analyzer, so it works on a copy.
  const auto copy = ProgramPreferences::store().copyInMemory();
  QEVSettings::LayeredPreferences store(*copy, ProgramPreferences::layers());
  sparkle::UpdaterConfiguration updates;
  updates.store = &store;
  sparkle::UpdaterConfiguration::setStandard(std::move(updates));
  const SettingsHost host(command.window, store);
  const headless::Window window(host.settingsView(command.tab), host.environment());
  const auto description = window.describe();
  if (command.format == OutputFormat::json) {
    console.out << headless::jsonDescription(description) << '\n';
  } else {
    console.out << escapedLines(headless::textDescription(description));
  }
  return std::nullopt;
}

}  // namespace zorvantine
