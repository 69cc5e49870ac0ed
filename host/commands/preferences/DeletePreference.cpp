// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"

namespace zorvantine {

Failed run(const DeletePreferenceCommand& command, Console&) {
  if (auto failure = lockedFailure(command.key)) return failure;
  const bool exists = Console::store().objectForKey(command.key).has_value();
  if (auto failure = storeFailure(Console::store())) return failure;
  if (!exists) return noSuchKey(command.key);
  Console::store().removeObject(command.key);
  return storeFailure(Console::store());
}

}  // namespace zorvantine
