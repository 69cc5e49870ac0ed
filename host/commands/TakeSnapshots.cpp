#include "commands/Commands.hpp"
#include "window/Snapshots.hpp"

namespace zorvantine {

Failed run(const SnapshotCommand& command, Console&) {
  if (auto failure = storeFailure(Console::store())) return failure;
  return takeSnapshots(command, Console::store());
}

}  // namespace zorvantine
