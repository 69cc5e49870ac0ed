// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <memory>

namespace foundation {

struct CloseSQLite {
  void operator()(sqlite3* database) const;
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, CloseSQLite>;
using Statement = std::unique_ptr<sqlite3_stmt, CloseSQLite>;

// Null when the statement does not compile.
inline Statement prepare(const Database& database, const char* text) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(database.get(), text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  return Statement(statement);
}

inline bool execute(const Database& database, const char* statements) {
  return sqlite3_exec(database.get(), statements, nullptr, nullptr, nullptr) == SQLITE_OK;
}

// Runs a statement without rows; returns its result code.
inline int run(const Statement& statement) {
  const int code = sqlite3_step(statement.get());
  sqlite3_reset(statement.get());
  return code;
}

}  // namespace foundation
