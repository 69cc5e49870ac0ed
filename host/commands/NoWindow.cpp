#include "commands/Commands.hpp"

// The commands of the window in a build without Qt.

namespace zorvantine {

Failed run(const SettingsCommand&, Console&) {
  return Failure{
      .message = "this build has no window; use describe and prefs, or build zorvantine with Qt"};
}

Failed run(const RunCommand&, Console&) {
  return Failure{
      .message = "this build has no window; use describe and prefs, or build zorvantine with Qt"};
}

Failed run(const SnapshotCommand&, Console&) {
  return Failure{
      .message = "this build cannot draw the window; use describe, or build zorvantine with Qt"};
}

}  // namespace zorvantine
