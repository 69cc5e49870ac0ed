// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "foundation/Translation.hpp"

// The commands of the window in a build without Qt.

namespace zorvantine {

using foundation::translated;

namespace {

Failed noWindow() {
  return Failure{
      .message = translated(
          "this build has no window; use describe and prefs, or build zorvantine with Qt")};
}

}  // namespace

Failed run(const SettingsCommand&, Console&) { return noWindow(); }

Failed run(const RunCommand&, Console&) { return noWindow(); }

Failed run(const SnapshotCommand&, Console&) {
  return Failure{
      .message = translated(
          "this build cannot draw the window; use describe, or build zorvantine with Qt")};
}

}  // namespace zorvantine
