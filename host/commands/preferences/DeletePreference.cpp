// SPDX-License-Identifier: MIT
#include "commands/Commands.hpp"
#include "preferences/ProgramPreferences.hpp"

namespace zorvantine {

Failed run(const DeletePreferenceCommand& command, Console&) {
  if (auto failure = lockedFailure(command.key)) return failure;
  const bool exists = ProgramPreferences::store().objectForKey(command.key).has_value();
  if (auto failure = storeFailure(ProgramPreferences::store())) return failure;
  if (!exists) return noSuchKey(command.key);
  ProgramPreferences::store().removeObject(command.key);
  return storeFailure(ProgramPreferences::store());
}

}  // namespace zorvantine
