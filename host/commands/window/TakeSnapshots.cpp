#include "commands/Commands.hpp"
#include "window/Snapshots.hpp"

namespace zorvantine {

Failed run(const SnapshotCommand& command, Console&) {
  return takeSnapshots(command, *Console::store().copyInMemory());
}

}  // namespace zorvantine
