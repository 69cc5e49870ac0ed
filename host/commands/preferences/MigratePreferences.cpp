// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "commands/Commands.hpp"
#include "preferences/ProgramPreferences.hpp"

namespace zorvantine {

Failed run(const MigratePreferencesCommand&, Console&) {
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(ProgramPreferences::store());
  return storeFailure(ProgramPreferences::store());
}

}  // namespace zorvantine
