// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "window/Snapshots.hpp"

namespace zorvantine {

Failed run(const SnapshotCommand& command, Console&) {
  const auto copy = Console::store().copyInMemory();
  QEVSettings::LayeredPreferences store(*copy, Console::layers());
  return takeSnapshots(command, store);
}

}  // namespace zorvantine
