// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "store/SQLiteHandles.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

// A new value of a key, or none when the key was removed.
struct PreferenceChange {
  std::string key;
  std::optional<QEVSettings::PreferenceValue> value;
  std::int64_t number = 0;  // of its row; 0 before it has one
};

inline constexpr int kApplicationId = 0x5A565052;  // "ZVPR" at a fixed place of the file

// 1: rows with the former checksum. 2: rows with either checksum, since the first write of a
// release that knows the new one.
inline constexpr int kFormatVersion = 2;

// The key of a row that tells other processes that older changes were added to the table, by a
// recovery or by a process that still had them in memory.
inline constexpr std::string_view kRecoveryKey("\0recovered", 10);
// The distance from the last known change to that row: more changes than any process can have seen
// beyond it.
inline constexpr std::int64_t kRecoveryStep = 1'000'000'000;

// The table of the preferences. PreferencesFile.hpp describes its columns.

// Creates the table and marks the database as a store, in one transaction. The caller rolls back on
// failure.
bool makePreferencesTable(const Database& database);

// The change in a row of `SELECT change, key, type, value, sum`; nothing when the checksum is
// wrong.
std::optional<PreferenceChange> changeOfRow(sqlite3_stmt* row);

// The rows above a change, in the order of writing.
inline constexpr const char* kSelectNew =
    "SELECT change, key, type, value, sum FROM preferences WHERE change > ?1 ORDER BY change";

// The number of entries in the index of the keys, which a whole table has one of for each row.
inline constexpr const char* kCountEntries =
    "SELECT count(*) FROM preferences INDEXED BY sqlite_autoindex_preferences_1";

// All rows in the order of writing, and in one more column the entries of the index. One statement,
// so that no write comes between reading the rows and counting the entries.
inline constexpr const char* kSelectAll =
    "SELECT change, key, type, value, sum, (SELECT count(*) FROM preferences "
    "INDEXED BY sqlite_autoindex_preferences_1) FROM preferences ORDER BY change";
inline constexpr int kEntriesColumn = 5;

// Binds the parameters ?1 to ?5 of a statement to change, key, type, value and sum, and runs it.
// Returns the result code.
int runWithChange(const Statement& statement, const PreferenceChange& change, std::int64_t number);

inline constexpr const char* kInsertChange =
    "INSERT INTO preferences (change, key, type, value, sum) VALUES (?1, ?2, ?3, ?4, ?5)";

}  // namespace foundation
