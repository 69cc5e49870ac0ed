#include "QEVSettings/QEVPreferencesMigration.hpp"

#include "QEVLog/QEVLog.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"

#include <string>
#include <utility>

namespace QEVSettings {

void QEVPreferencesMigration::migrateIfNeeded(PreferencesStore& defaults) {
  const std::int64_t stored = defaults.integerForKey(schemaVersionKey);
  if (stored >= currentSchemaVersion) return;
  if (stored != 1) migrateColorFormatDataToBase64(defaults);
  migrateProtocolsPortsFromArrayToString(defaults);
  defaults.setInteger(currentSchemaVersion, schemaVersionKey);
}

// Both steps let go of an entry of their snapshot once it is dealt with, so that memory never holds
// two of every list.
void QEVPreferencesMigration::migrateColorFormatDataToBase64(PreferencesStore& defaults) {
  int rewritten = 0;
  auto snapshot = defaults.dictionaryRepresentation();
  while (!snapshot.empty()) {
    const auto entry = snapshot.extract(snapshot.begin());
    auto color = colorAsText(entry.key(), entry.mapped());
    if (!color) continue;
    defaults.setObject(*std::move(color), entry.key());
    ++rewritten;
  }
  if (rewritten == 0) return;
  QEVLog::logMessage("prefs migration v1: rewrote " + std::to_string(rewritten) +
                         " color key(s) from Data to base64 String",
                     "migrateColorFormatDataToBase64(defaults:)");
}

void QEVPreferencesMigration::migrateProtocolsPortsFromArrayToString(PreferencesStore& defaults) {
  int rewritten = 0;
  auto snapshot = defaults.dictionaryRepresentation();
  while (!snapshot.empty()) {
    const auto entry = snapshot.extract(snapshot.begin());
    auto list = protocolListWithPortsAsText(entry.key(), entry.mapped());
    if (!list) continue;
    defaults.setObject(*std::move(list), entry.key());
    ++rewritten;
  }
  if (rewritten == 0) return;
  QEVLog::logMessage("prefs migration v2: rewrote protocolPorts from array to String in " +
                         std::to_string(rewritten) + " protocol list(s)",
                     "migrateProtocolsPortsFromArrayToString(defaults:)");
}

}  // namespace QEVSettings
