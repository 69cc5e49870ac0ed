#pragma once

#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <cstdint>
#include <string_view>

namespace QEVSettings {

// Brings a store that an earlier release left behind up to the current schema, in place:
//
//     schema 0    colours may be raw bytes, and ports an array in each record of a protocol list
//     schema 1    colours are base64 text
//     schema 2    ports are one string, "80,8000-8010"
//
// What cannot be understood stays as it is stored, and keeps nothing else from being migrated.
class QEVPreferencesMigration {
public:
  QEVPreferencesMigration() = delete;

  static constexpr std::string_view schemaVersionKey = kPrefsSchemaVersion.name;
  static constexpr std::int64_t currentSchemaVersion = 2;

  // To be called at launch, on the main thread, before anything reads colours or protocol lists. A
  // store of the current schema, or of a later one, is left alone. Never fails; says in the log
  // what it rewrote.
  static void migrateIfNeeded(PreferencesStore& defaults);

private:
  static void migrateColorFormatDataToBase64(PreferencesStore& defaults);
  static void migrateProtocolsPortsFromArrayToString(PreferencesStore& defaults);
};

}  // namespace QEVSettings
