// SPDX-License-Identifier: MIT
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "commands/window/Snapshots.hpp"
#include "foundation/Translation.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "process/Interruption.hpp"
#include "window/DesktopDisplay.hpp"
#include "window/DesktopHost.hpp"

#include <filesystem>
#include <iostream>

namespace zorvantine {

using foundation::translated;

namespace {

constexpr const char* kPicturesFolder = "zorvantine-settings";

void tellOfPictures(DesktopDisplay display) {
  const char* const message =
      display == DesktopDisplay::needsWaylandPlugin
          ? "a window on Wayland needs the package qt6-wayland, so the window is drawn into the "
            "folder %1; install it to open the window"
          : "no display can be reached, so the window is drawn into the folder %1; set DISPLAY or "
            "WAYLAND_DISPLAY to open it";
  std::cerr << "zorvantine: " << onOneLine(translated(message, {kPicturesFolder})) << std::endl;
}

}  // namespace

Failed run(const SettingsCommand& command, Console&) {
  auto& store = ProgramPreferences::store();
  if (const DesktopDisplay display = desktopDisplay(); display != DesktopDisplay::usable) {
    if (auto failure = storeFailure(store)) return failure;
    tellOfPictures(display);
    SnapshotCommand snapshot;
    snapshot.folder = kPicturesFolder;
    snapshot.window = command.window;
    const auto copy = store.copyInMemory();
    QEVSettings::LayeredPreferences layered(*copy, ProgramPreferences::layers());
    return takeSnapshots(snapshot, layered);
  }
  const Interruption interruption;
  DesktopHost(command.window, ProgramPreferences::inForce(), qt::Application::Display::screen)
      .run(command.tab, interruption);
  return std::nullopt;
}

}  // namespace zorvantine
