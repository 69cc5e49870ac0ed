#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "commands/Interruption.hpp"
#include "qt/Application.hpp"
#include "window/DesktopHost.hpp"
#include "window/Snapshots.hpp"

#include <filesystem>
#include <iostream>

namespace zorvantine {

namespace {

constexpr const char* kPicturesFolder = "zorvantine-settings";

void tell(const std::string& message) {
  std::cerr << "zorvantine: " << onOneLine(message) << std::endl;
}

}  // namespace

Failed run(const SettingsCommand& command, Console&) {
  auto& store = Console::store();
  if (!qt::Application::hasDisplay()) {
    if (auto failure = storeFailure(store)) return failure;
    tell(std::string("no display can be reached, so the window is drawn into the folder ") +
         kPicturesFolder + "; set DISPLAY or WAYLAND_DISPLAY to open it");
    SnapshotCommand snapshot;
    snapshot.folder = kPicturesFolder;
    snapshot.window = command.window;
    const auto copy = store.copyInMemory();
    QEVSettings::LayeredPreferences layered(*copy, Console::layers());
    return takeSnapshots(snapshot, layered);
  }
  const Interruption interruption;
  DesktopHost(command.window, Console::preferences(), qt::Application::Display::screen)
      .run(command.tab, interruption);
  return std::nullopt;
}

}  // namespace zorvantine
