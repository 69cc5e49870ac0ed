#pragma once

#include "CommitStamp.hpp"
#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace foundation {

// Puts the names of a folder's files on disk.
void syncFolder(const std::filesystem::path& folder);

// Tells whoever watches the folder of a store that a write to it counts by now: SQLite writes its log before.
void cueWatchers(const std::filesystem::path& store);

// A key's new value, or nothing when the key was removed.
struct PreferenceChange {
  std::string key;
  std::optional<QEVSettings::PreferenceValue> value;
};

// The preferences on disk: an SQLite database in WAL mode with one table.
//
//     preferences(change INTEGER PRIMARY KEY, key BLOB UNIQUE, type INTEGER, value ANY, sum INTEGER)
//
// `key` holds the key's bytes. `type` is the PreferenceValue::Type, and NULL once the key was removed.
// `value` holds an integer or a Boolean (0, 1) as INTEGER, a real as REAL, text as TEXT, data as BLOB, a
// date as REAL seconds since 1970 (not-a-number as NULL), and an array or a dictionary as the BLOB that
// PreferenceCoding describes. `sum` is a checksum of the three, since SQLite does not notice when the disk
// hands back other bytes than it was given.
//
// Every write replaces its key's row by one with the next `change`, so that a reader finds all that is
// new to it behind the last change it saw, removals included. The row of the last change is never
// deleted, or its number would be given out twice.
//
// Several processes may have the file open. One thread at a time.
class PreferencesFile {
public:
  using Receiver = std::function<void(PreferenceChange)>;

  // What became of an attempt to use the file.
  enum class State {
    closed,
    open,
    unusable,  // nothing is wrong with what it holds, as far as that could be seen
    busy,      // another process holds it for longer than a moment
    damaged,   // it holds no preferences, or not what was written
    foreign,   // it holds something else
  };

  explicit PreferencesFile(std::filesystem::path absolutePath) : path_(std::move(absolutePath)) {}

  // Creates what is missing, folders with mode 0700 and the file with 0600, and opens the file. Refused are
  // a symbolic link, whatever is no regular file, and what belongs to another user.
  Outcome open();

  // Opens the file to be read alone: makes nothing, and changes nothing.
  Outcome openForReading();

  // From now on, finds the file busy at once where it would have waited for another process, until an
  // operation succeeds.
  void dontWait() { isStuck_ = true; }

  // Why this change can never be stored, if so.
  static std::optional<Error> refusalOf(const PreferenceChange& change);

  // After the last operation.
  State state() const { return state_; }
  bool isDamaged() const { return state_ == State::damaged || state_ == State::foreign; }

  // Whether the file may be read but not written.
  bool isReadOnly() const { return readOnly_; }

  // Whether another file, or none, stands where this one stood when it was opened, or the index of its log was cut
  // off. It must be opened anew then.
  bool isReplaced() const;
  bool isIndexCut() const { return stamp_.isIndexCut(); }

  // Whether somebody may have written since the last `readChanges` began. Costs a look into shared
  // memory, no system call.
  bool mayHaveChanged() const { return stamp_.isAttached() ? stamp_.isNew() : !unchanging_; }

  // Hands over what was written since the last call, by anyone but this object, in the order of writing;
  // at first, everything.
  Outcome readChanges(const Receiver& receive);

  // Writes all of the changes or none. When it returns they are the system's to keep, and survive the end
  // of this process. What others wrote before is handed over first.
  Outcome write(std::span<const PreferenceChange> changes, const Receiver& receive);

  // Returns when what was written survives a power cut. Until then a power cut undoes the last writes, but
  // leaves no other harm.
  Outcome synchronize();

  // Makes a store at another path of all that this one holds, without the removed keys. That file is
  // complete and on disk when this succeeds, and does not exist otherwise.
  Outcome copyTo(const std::filesystem::path& path);

  // What SQLite finds wrong with the file, a line each; takes as long as reading all of it.
  std::vector<std::string> faults();

private:
  struct Close {
    void operator()(sqlite3* database) const;
    void operator()(sqlite3_stmt* statement) const;
  };
  using Database = std::unique_ptr<sqlite3, Close>;
  using Statement = std::unique_ptr<sqlite3_stmt, Close>;

  Outcome makeFile() const;
  Result<unsigned> inspect();  // says its mode
  Outcome connect(bool forReading);
  Outcome connectUnchanging();
  Outcome makeUnshared();
  std::optional<std::int64_t> objectCount();
  Outcome identify(std::optional<std::int64_t> objects);
  Outcome setUp();
  Outcome useWriteAheadLog();
  Statement prepared(const char* text);
  Outcome prepareToRead();
  Outcome prepareToWrite();
  void findStamp();
  std::optional<std::int64_t> number(const char* query);
  bool run(const std::string& statements);
  static bool run(const Statement& statement);
  bool insert(const PreferenceChange& change);
  Outcome succeed();
  Error fail(State state, std::string message);
  Error failure(const char* what);
  static int wait(void* self, int attempts);

  std::filesystem::path path_;
  Database database_;
  Statement begin_;
  Statement select_;
  Statement insert_;
  Statement commit_;
  State state_ = State::closed;
  bool readOnly_ = false;
  bool unchanging_ = false;
  bool usesLog_ = false;
  bool isSynchronized_ = true;
  bool isStuck_ = false;  // the last wait for another process was in vain
  std::chrono::steady_clock::time_point waitingSince_;
  std::uint64_t device_ = 0;
  std::uint64_t node_ = 0;
  std::int64_t lastChange_ = 0;
  CommitStamp stamp_;
};

}  // namespace foundation
