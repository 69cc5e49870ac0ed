// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <cstdint>
#include <string_view>

namespace QEVSettings {

// Migrates a store of an earlier release to the current schema, in place:
//
//     schema 0    colours may be raw bytes; ports may be an array in each record of a protocol list
//     schema 1    colours are base64 text
//     schema 2    ports are one string, "80,8000-8010"
//
// A value that cannot be read stays as it is and does not stop the migration of the others.
//
//     QEVPreferencesMigration::migrateIfNeeded(UserDefaults::standardUserDefaults());
class QEVPreferencesMigration {
public:
  QEVPreferencesMigration() = delete;

  static constexpr std::string_view schemaVersionKey = kPrefsSchemaVersion.name;
  static constexpr std::int64_t currentSchemaVersion = 2;

  // Call it at launch, on the main thread, before anything reads colours or protocol lists. Does
  // nothing to a store of the current schema or a later one. Never fails; logs what it rewrote.
  static void migrateIfNeeded(PreferencesStore& defaults);

private:
  static void migrateColorFormatDataToBase64(PreferencesStore& defaults);
  static void migrateProtocolsPortsFromArrayToString(PreferencesStore& defaults);
};

}  // namespace QEVSettings
