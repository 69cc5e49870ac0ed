// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "commands/Commands.hpp"

namespace zorvantine {

Failed run(const MigratePreferencesCommand&, Console&) {
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(Console::store());
  return storeFailure(Console::store());
}

}  // namespace zorvantine
