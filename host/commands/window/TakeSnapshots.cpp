// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "commands/window/Snapshots.hpp"
#include "preferences/ProgramPreferences.hpp"

namespace zorvantine {

Failed run(const SnapshotCommand& command, Console&) {
  const auto copy = ProgramPreferences::store().copyInMemory();
  QEVSettings::LayeredPreferences store(*copy, ProgramPreferences::layers());
  return takeSnapshots(command, store);
}

}  // namespace zorvantine
