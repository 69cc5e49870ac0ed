#include "commandline/TextForm.hpp"
#include "commandline/Translation.hpp"
#include "commands/Commands.hpp"
#include "commands/Interruption.hpp"
#include "window/DesktopDisplay.hpp"
#include "window/DesktopHost.hpp"
#include "window/Snapshots.hpp"

#include <filesystem>
#include <iostream>

namespace zorvantine {

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
  auto& store = Console::store();
  if (const DesktopDisplay display = desktopDisplay(); display != DesktopDisplay::usable) {
    if (auto failure = storeFailure(store)) return failure;
    tellOfPictures(display);
    SnapshotCommand snapshot;
    snapshot.folder = kPicturesFolder;
    snapshot.window = command.window;
    return takeSnapshots(snapshot, *store.copyInMemory());
  }
  const Interruption interruption;
  DesktopHost(command.window, store, qt::Application::Display::screen)
      .run(command.tab, interruption);
  return std::nullopt;
}

}  // namespace zorvantine
