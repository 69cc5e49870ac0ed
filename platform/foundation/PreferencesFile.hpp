#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace foundation {

// A key's new value, or nothing when the key was removed.
struct PreferenceChange {
  std::string key;
  std::optional<QEVSettings::PreferenceValue> value;
};

// The preferences on disk: an SQLite database in WAL mode with one table.
//
//     preferences(change INTEGER PRIMARY KEY, key BLOB UNIQUE, type INTEGER, value ANY)
//
// `key` holds the key's bytes. `type` is the PreferenceValue::Type, and NULL once the key was removed.
// `value` holds an integer or a Boolean (0, 1) as INTEGER, a real as REAL, text as TEXT, data as BLOB, a
// date as REAL seconds since 1970 (not-a-number as NULL), and an array or a dictionary as the BLOB that
// PreferenceCoding describes.
//
// Every write replaces its key's row by one with the next `change`, so that a reader finds all that is
// new to it behind the last change it saw, removals included. The row of the last change is never
// deleted, or its number would be given out twice.
//
// Several processes may have the file open. Main thread.
class PreferencesFile {
public:
  using Receiver = std::function<void(PreferenceChange)>;

  // Creates what is missing: folders with mode 0700, the file with 0600. An existing file of another
  // kind is left as it is and refused.
  static Result<std::unique_ptr<PreferencesFile>> open(const std::filesystem::path& path);

  // Why this change can never be stored, if so.
  static std::optional<Error> refusalOf(const PreferenceChange& change);

  // Whether the file may be read but not written.
  bool isReadOnly() const { return readOnly_; }

  // Whether somebody may have written since the last `readChanges` began. Costs a look into shared
  // memory, no system call.
  bool mayHaveChanged() const;

  // Hands over what was written since the last call, by anyone but this object, in the order of writing;
  // at first, everything.
  Outcome readChanges(const Receiver& receive);

  // Writes all of the changes or none, and returns when they are on disk. What others wrote before is
  // handed over first.
  Outcome write(std::span<const PreferenceChange> changes, const Receiver& receive);

private:
  struct Close {
    void operator()(sqlite3* database) const;
    void operator()(sqlite3_stmt* statement) const;
  };
  using Database = std::unique_ptr<sqlite3, Close>;
  using Statement = std::unique_ptr<sqlite3_stmt, Close>;

  explicit PreferencesFile(std::filesystem::path path) : path_(std::move(path)) {}

  Outcome connect();
  Outcome connectUnchanging();
  Outcome useWriteAheadLog();
  Outcome identify();
  Outcome prepare();
  void findStamp();
  std::optional<std::int64_t> number(const char* query);
  bool run(const char* statement);
  bool insert(const PreferenceChange& change);
  Error failure(const char* what) const;

  std::filesystem::path path_;
  Database database_;
  Statement select_;
  Statement insert_;
  bool readOnly_ = false;
  bool unchanging_ = false;
  std::int64_t lastChange_ = 0;
  std::uint64_t* stamp_ = nullptr;  // in memory that SQLite shares between processes
  std::uint64_t seenStamp_ = 0;
};

}  // namespace foundation
