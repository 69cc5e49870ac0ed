// SPDX-License-Identifier: MIT
#include "commands/window/Snapshots.hpp"

#include "appkit/Application.hpp"
#include "foundation/Translation.hpp"
#include "window/DesktopHost.hpp"

#include <array>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace zorvantine {

using foundation::translated;

namespace {

std::vector<Tab> tabsOf(const SnapshotCommand& command) {
  if (command.tab) return {*command.tab};
  std::vector<Tab> tabs{Tab::general, Tab::capture, Tab::proxy, Tab::analyze, Tab::appearance};
  if (!command.window.hasProxyTab) std::erase(tabs, Tab::proxy);
  return tabs;
}

}  // namespace

std::optional<Failure> takeSnapshots(const SnapshotCommand& command,
                                     QEVSettings::PreferencesStore& store) {
  std::error_code error;
  std::filesystem::create_directories(command.folder, error);
  if (error) {
    return Failure{.message = translated("cannot make the folder %1 (%2); choose another",
                                         {command.folder.string(), error.message()})};
  }
  const DesktopHost desktop(command.window, store, qt::Application::Display::offscreen);
  if (command.appearance) {
    appkit::Application::sharedApplication().setAppearance(*command.appearance == Appearance::light
                                                               ? appkit::Appearance::light
                                                               : appkit::Appearance::dark);
  }
  for (const Tab tab : tabsOf(command)) {
    const auto picture = command.folder / (std::string(nameOf(tab)) + ".png");
    const auto outcome = desktop.makeWindow(tab)->snapshot(picture.string(), command.scale);
    if (!outcome) return Failure{.message = outcome.error().message};
  }
  return std::nullopt;
}

}  // namespace zorvantine
