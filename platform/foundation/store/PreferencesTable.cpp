// SPDX-License-Identifier: MIT
#include "store/PreferencesTable.hpp"

#include "store/PreferenceCell.hpp"

#include <utility>

namespace foundation {

namespace {

std::string columnText(sqlite3_stmt* statement, int column) {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
  return bytes != nullptr
             ? std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)))
             : std::string();
}

}  // namespace

bool makePreferencesTable(const Database& database) {
  const std::string mark = "PRAGMA application_id = " + std::to_string(kApplicationId) +
                           "; PRAGMA user_version = " + std::to_string(kFormatVersion);
  return execute(database, "BEGIN IMMEDIATE") &&
         execute(database,
                 "CREATE TABLE IF NOT EXISTS preferences (change INTEGER PRIMARY KEY, key BLOB NOT "
                 "NULL UNIQUE, "
                 "type INTEGER, value ANY, sum INTEGER NOT NULL) STRICT") &&
         execute(database, mark.c_str()) && execute(database, "COMMIT");
}

std::optional<PreferenceChange> changeOfRow(sqlite3_stmt* row) {
  PreferenceChange change{
      .key = columnText(row, 1), .value = std::nullopt, .number = sqlite3_column_int64(row, 0)};
  const auto cell = PreferenceCell::ofColumns(row, 2, 3);
  if (!cell.hasSum(sqlite3_column_int64(row, 4), change.key)) return std::nullopt;
  change.value = cell.value();
  if (change.value.has_value() == cell.isRemoval()) return std::nullopt;
  return change;
}

int runWithChange(const Statement& statement, const PreferenceChange& change, std::int64_t number) {
  const auto cell = PreferenceCell::ofValue(change.value);
  if (!cell) return SQLITE_TOOBIG;
  sqlite3_bind_int64(statement.get(), 1, number);
  // SQLite binds NULL for a null pointer, which an empty key may have.
  sqlite3_bind_blob64(statement.get(), 2, change.key.empty() ? "" : change.key.data(),
                      change.key.size(), SQLITE_STATIC);
  sqlite3_bind_null(statement.get(), 3);
  sqlite3_bind_null(statement.get(), 4);
  cell->bind(statement.get(), 3, 4);
  sqlite3_bind_int64(statement.get(), 5, cell->sum(change.key));
  // The bindings are not cleared, because that would overwrite the error code. The next run
  // replaces them.
  return run(statement);
}

}  // namespace foundation
