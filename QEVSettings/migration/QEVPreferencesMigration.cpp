// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigration.hpp"

#include "QEVLog/QEVLog.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace QEVSettings {

namespace {

using MigrationStep = std::optional<PreferenceValue> (*)(std::string_view key,
                                                         const PreferenceValue& value);

// Writes the step's result for each value that the step changes, and returns how many these are.
// Each value leaves the snapshot before it is rewritten, so that memory never holds two forms of
// all lists.
int rewriteValues(PreferencesStore& defaults, MigrationStep step) {
  int rewritten = 0;
  auto snapshot = defaults.dictionaryRepresentation();
  while (!snapshot.empty()) {
    const auto entry = snapshot.extract(snapshot.begin());
    auto value = step(entry.key(), entry.mapped());
    if (!value) continue;
    defaults.setObject(*std::move(value), entry.key());
    ++rewritten;
  }
  return rewritten;
}

}  // namespace

void QEVPreferencesMigration::migrateIfNeeded(PreferencesStore& defaults) {
  // What administrators set is converted as it is read, and a lock does not keep an old form alive.
  PreferencesStore& person = defaults.personLayer();
  const std::int64_t stored = person.integerForKey(schemaVersionKey);
  if (stored >= currentSchemaVersion) return;
  if (stored != 1) migrateColorFormatDataToBase64(person);
  migrateProtocolsPortsFromArrayToString(person);
  person.setInteger(currentSchemaVersion, schemaVersionKey);
}

void QEVPreferencesMigration::migrateColorFormatDataToBase64(PreferencesStore& defaults) {
  const int rewritten = rewriteValues(defaults, colorAsText);
  if (rewritten == 0) return;
  QEVLog::logMessage("prefs migration v1: rewrote " + std::to_string(rewritten) +
                         " color key(s) from Data to base64 String",
                     "migrateColorFormatDataToBase64(defaults:)");
}

void QEVPreferencesMigration::migrateProtocolsPortsFromArrayToString(PreferencesStore& defaults) {
  const int rewritten = rewriteValues(defaults, protocolListWithPortsAsText);
  if (rewritten == 0) return;
  QEVLog::logMessage("prefs migration v2: rewrote protocolPorts from array to String in " +
                         std::to_string(rewritten) + " protocol list(s)",
                     "migrateProtocolsPortsFromArrayToString(defaults:)");
}

}  // namespace QEVSettings
