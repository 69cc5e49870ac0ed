// SPDX-License-Identifier: MIT
#include "Contender.hpp"

#include <sqlite3.h>

#include <cstdlib>

namespace {

struct Close {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

void must(bool ok) {
  if (!ok) std::abort();
}

Database openIn(const std::filesystem::path& folder) {
  sqlite3* opened = nullptr;
  must(sqlite3_open((folder / "raw.sqlite").c_str(), &opened) == SQLITE_OK);
  Database database(opened);
  must(sqlite3_exec(opened, "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL", nullptr,
                    nullptr, nullptr) == SQLITE_OK);
  return database;
}

Statement prepared(sqlite3* database, const char* text) {
  sqlite3_stmt* statement = nullptr;
  must(sqlite3_prepare_v3(database, text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) ==
       SQLITE_OK);
  return Statement(statement);
}

// SQLite without a layer above it: one table, prepared statements, a transaction for each write.
class SQLiteContender final : public Contender {
public:
  SQLiteContender(const std::filesystem::path& folder, std::size_t keyCount)
      : database_(openIn(folder)),
        select_(prepared(database_.get(), "SELECT value FROM settings WHERE key = ?1")),
        replace_(prepared(database_.get(), "REPLACE INTO settings (key, value) VALUES (?1, ?2)")) {
    for (std::size_t i = 0; i < keyCount; ++i) names_.push_back(keyName(i));
  }

  bool readBoolean(std::size_t key) override {
    look(key);
    return sqlite3_column_int(select_.get(), 0) != 0;
  }
  std::size_t readString(std::size_t key) override {
    look(key);
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(select_.get(), 0));
    return lengthAndLast(
        std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(select_.get(), 0))));
  }
  std::size_t readBytes(std::size_t key) override {
    look(key);
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(select_.get(), 0));
    return lengthAndLast(
        std::string_view(bytes, static_cast<std::size_t>(sqlite3_column_bytes(select_.get(), 0))));
  }
  void writeBoolean(std::size_t key, bool value) override {
    sqlite3_reset(select_.get());
    bindName(replace_.get(), key);
    sqlite3_bind_int(replace_.get(), 2, value ? 1 : 0);
    must(sqlite3_step(replace_.get()) == SQLITE_DONE);
    sqlite3_reset(replace_.get());
  }

private:
  void bindName(sqlite3_stmt* statement, std::size_t key) {
    sqlite3_bind_text(statement, 1, names_[key].c_str(), static_cast<int>(names_[key].size()),
                      SQLITE_STATIC);
  }
  void look(std::size_t key) {
    sqlite3_reset(select_.get());
    bindName(select_.get(), key);
    must(sqlite3_step(select_.get()) == SQLITE_ROW);
  }

  Database database_;
  Statement select_;
  Statement replace_;
  std::vector<std::string> names_;
};

void fill(const std::filesystem::path& folder, std::size_t keyCount) {
  const Database database = openIn(folder);
  const auto run = [&](const char* text) {
    must(sqlite3_exec(database.get(), text, nullptr, nullptr, nullptr) == SQLITE_OK);
  };
  run("CREATE TABLE settings (key TEXT PRIMARY KEY, value)");
  run("BEGIN");
  const Statement insert =
      prepared(database.get(), "INSERT INTO settings (key, value) VALUES (?1, ?2)");
  for (std::size_t i = 0; i < keyCount; ++i) {
    const std::string name = keyName(i);
    const std::string text = stringValue(i);
    const auto bytes = bytesValue(i);
    sqlite3_bind_text(insert.get(), 1, name.c_str(), -1, SQLITE_STATIC);
    switch (kindOf(i)) {
      case KeyKind::boolean: sqlite3_bind_int(insert.get(), 2, 1); break;
      case KeyKind::string:
        sqlite3_bind_text(insert.get(), 2, text.c_str(), -1, SQLITE_STATIC);
        break;
      case KeyKind::bytes:
        sqlite3_bind_blob(insert.get(), 2, bytes.data(), static_cast<int>(bytes.size()),
                          SQLITE_STATIC);
        break;
    }
    must(sqlite3_step(insert.get()) == SQLITE_DONE);
    sqlite3_reset(insert.get());
  }
  run("COMMIT");
}

}  // namespace

const ContenderKind& sqliteContender() {
  static const ContenderKind kind{
      .name = "SQLite",
      .open = [](const std::filesystem::path& folder,
                 std::size_t keyCount) -> std::unique_ptr<Contender> {
        return std::make_unique<SQLiteContender>(folder, keyCount);
      },
      .fill = fill,
  };
  return kind;
}
