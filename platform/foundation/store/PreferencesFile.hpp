#pragma once

#include "QEVSettings/preferences/StorageReport.hpp"
#include "foundation/Result.hpp"
#include "store/PreferencesTable.hpp"
#include "store/SQLiteHandles.hpp"
#include "store/StoreIdentity.hpp"
#include "store/watch/CommitStamp.hpp"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace foundation {

// Tells whoever watches the folder of a store that a write to it counts by now: SQLite writes its
// log before.
void cueWatchers(const std::filesystem::path& store);

// The preferences on disk: an SQLite database in WAL mode with one table.
//
//     preferences(change INTEGER PRIMARY KEY, key BLOB UNIQUE, type INTEGER, value ANY, sum
//     INTEGER)
//
// `key` holds the key's bytes. `type` is the PreferenceValue::Type, and NULL once the key was
// removed. `value` holds an integer or a Boolean (0, 1) as INTEGER, a real as REAL, text as TEXT,
// data as BLOB, a date as REAL seconds since 1970 (not-a-number as NULL), and an array or a
// dictionary as the BLOB that PreferenceCoding describes. `sum` is the checksum of the
// three that RowChecksum.hpp describes, since SQLite does not notice when the disk hands back other
// bytes than it was given.
//
// Every write replaces its key's row by one with the next `change`, so that a reader finds all that
// is new to it behind the last change it saw, removals included. The row of the last change is
// never deleted, or its number would be given out twice.
//
// Several processes may have the file open. One thread at a time.
class PreferencesFile {
public:
  using Receiver = std::function<void(PreferenceChange)>;
  // The number of the row that holds a key, removed or not, as far as it was received; 0 for none.
  using RowNumbers = std::function<std::int64_t(std::string_view key)>;

  // What became of an attempt to use the file.
  enum class State {
    closed,
    open,
    unusable,  // nothing is wrong with what it holds, as far as that could be seen
    busy,      // another process holds it for longer than a moment
    damaged,   // it holds no preferences, or not what was written
  };

  explicit PreferencesFile(std::filesystem::path absolutePath) : path_(std::move(absolutePath)) {}
  PreferencesFile(const PreferencesFile&) = delete;
  PreferencesFile& operator=(const PreferencesFile&) = delete;
  ~PreferencesFile();

  // Opens a file that is a store of ours, or empty.
  Outcome open();

  // Opens the file to be read alone, while others may write to it.
  Outcome openForReading();

  // Reads all of the file into memory: creates nothing, writes nothing, takes no lock, and hears of
  // no later change.
  Outcome openSnapshot();

  // From now on, finds the file busy at once where it would have waited for another process, until
  // an operation succeeds.
  void dontWait() { isStuck_ = true; }

  // Why this change can never be stored, if so.
  static std::optional<Error> refusalOf(const PreferenceChange& change);

  // After the last operation: what became of it, and, when it failed, why.
  State state() const { return state_; }
  bool isDamaged() const { return state_ == State::damaged; }
  QEVSettings::StorageProblem problem() const { return problem_; }

  // Whether the file may be read but not written.
  bool isReadOnly() const { return readOnly_; }

  // Whether another file, or none, stands where this one, its log or its folder stood when it was
  // opened: the file must be opened anew. One system call, a few more when something came into the
  // folder or left it.
  bool isReplaced() { return identity_.isReplaced(path_); }
  // Whether the index of the log was cut off. Nothing but closing is allowed then: anything else
  // raises SIGBUS. One system call.
  bool isIndexCut() const { return stamp_.isIndexCut(); }
  // Whether a log stands there of a file that is gone: it says nothing about the file that is there
  // now.
  bool hasLeftItsLog() const { return identity_.hasLeftItsLog(path_); }
  // Whether the folder is no longer the one of the last look.
  bool isFolderReplaced() const { return identity_.isFolderReplaced(path_); }

  // Whether somebody may have written since the last `readChanges` began. Costs a look into shared
  // memory, no system call.
  bool mayHaveChanged() const { return stamp_.isAttached() ? stamp_.isNew() : !unchanging_; }

  // Hands over everything, in the order of writing, and compares it with what the index has.
  Outcome readAll(const Receiver& receive);

  // Hands over what was written since the last call of either, by anyone but this object.
  Outcome readChanges(const Receiver& receive);

  // Whether older changes came into the table since this was asked last: only `readAll` gives them.
  bool takeHasOlderChanges() { return std::exchange(hasOlderChanges_, false); }

  // The highest number of a change that was read or written.
  std::int64_t lastChange() const { return lastChange_; }

  // The same as it stands in the file, whether it was read or not.
  std::optional<std::int64_t> newestChange() {
    return number("SELECT max(change) FROM preferences");
  }

  // Writes all of the changes or none, and numbers them. A change that has a number already was
  // lost by the file: it keeps its number where possible, and is left out, numbered 0, when the
  // file has a newer one of its key. When this returns the changes are the system's to keep, and
  // survive the end of this process. What others wrote before is handed over first.
  Outcome write(std::span<PreferenceChange> changes, const Receiver& receive,
                const RowNumbers& rows);

  // Returns when what was written survives a power cut. Until then a power cut undoes the last
  // writes, but leaves no other harm.
  Outcome synchronize();

  // Makes a store at another path of all that this one holds, marked as a good copy is. That file
  // is complete and on disk when this succeeds, and does not exist otherwise.
  Outcome copyTo(const std::filesystem::path& path);

  // What SQLite finds wrong with the file, a line each; takes as long as reading all of it.
  std::vector<std::string> faults();

private:
  Outcome connect(bool forReading);
  Outcome makeUnshared();
  std::optional<std::int64_t> objectCount();
  Outcome identify(std::optional<std::int64_t> objects);
  Outcome setUp();
  Outcome useWriteAheadLog();
  Outcome prepareToRead();
  Outcome prepareToWrite();
  void findStamp();
  Outcome checkLog(std::uintmax_t logBytes);
  std::optional<std::int64_t> number(const char* query);
  std::optional<std::int64_t> entriesOfIndex();
  Outcome writeOne(PreferenceChange& change, std::int64_t& last, const RowNumbers& rows);
  Outcome bringAlong(PreferenceChange& change, std::int64_t& last);
  Outcome replaceRow(const PreferenceChange& change, std::int64_t number, std::int64_t row);
  Outcome updateRow(const PreferenceChange& change, std::int64_t number, std::int64_t row,
                    bool& isFound);
  std::int64_t rowInIndex(std::string_view key);
  Outcome succeed();
  Error fail(State state, QEVSettings::StorageProblem problem, std::string message);
  Error damage();
  Error failure(const char* what);
  static int wait(void* self, int attempts);

  std::filesystem::path path_;
  StoreIdentity identity_;
  Database database_;
  Statement begin_;
  Statement select_;
  Statement insert_;
  Statement update_;
  Statement commit_;
  State state_ = State::closed;
  QEVSettings::StorageProblem problem_ = QEVSettings::StorageProblem::failing;
  bool readOnly_ = false;
  bool unchanging_ = false;
  bool usesLog_ = false;
  bool isLogWhole_ = false;  // nothing in the log was left out when SQLite opened it
  bool isSynchronized_ = true;
  bool hasOlderChanges_ = false;
  bool isStuck_ = false;  // the last wait for another process was in vain
  std::chrono::steady_clock::time_point waitingSince_;
  std::int64_t lastChange_ = 0;
  CommitStamp stamp_;  // the last member: it lets go of the index before the database is closed
};

}  // namespace foundation
