// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/StorageReport.hpp"
#include "foundation/Result.hpp"
#include "store/PreferencesHistory.hpp"
#include "store/PreferencesTable.hpp"
#include "store/SQLiteFileUse.hpp"
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

// Gives the processes that watch the folder another event after a write. SQLite's own event comes
// before readers can see the write.
void cueWatchers(const std::filesystem::path& store);

// How a writer's connection waits for the disk, and after how many pages SQLite copies the log into
// the file.
inline constexpr const char* kSynchronizing =
    "PRAGMA synchronous = NORMAL; PRAGMA wal_autocheckpoint = 4000";

// The preferences on disk: an SQLite database in WAL mode with this table. PreferencesHistory.hpp
// describes the other one.
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
  // The number of the row that holds a key, removed or not, as far as it was received; 0 when there
  // is none.
  using RowNumbers = std::function<std::int64_t(std::string_view key)>;

  // The result of the last operation.
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

  // Opens a store, or makes one of an empty file.
  Outcome open();

  // Opens the file for reading only, while others may write to it.
  Outcome openForReading();

  // Reads all of the file into memory. Creates nothing, writes nothing, takes no lock, and does not
  // see later changes.
  Outcome openSnapshot();

  // Until the next operation that succeeds, operations fail at once where they would wait for
  // another process.
  void dontWait() { isStuck_ = true; }

  // The owner calls `checkpoint` after its last write. The first write to a new log then waits less
  // for the disk.
  void expectCheckpoint() { endsWithCheckpoint_ = true; }

  // Why the value, or the removal if there is none, can never be stored; nothing when it can.
  static std::optional<Error> refusalOf(std::string_view key,
                                        const QEVSettings::PreferenceValue* value);

  // The state after the last operation, and the problem when it failed.
  State state() const { return state_; }
  bool isDamaged() const { return state_ == State::damaged; }
  QEVSettings::StorageProblem problem() const { return problem_; }

  // Whether the file may be read but not written.
  bool isReadOnly() const { return readOnly_; }

  // Whether the file, its log, its index or its folder is no longer the one that was opened, so
  // that the file must be opened again. One system call, and more when the folder changed.
  bool isReplaced() { return identity_.isReplaced(path_); }
  // Whether the index of the log was truncated. The file may only be closed then: any other access
  // raises SIGBUS. One system call.
  bool isIndexCut() const { return stamp_.isIndexCut(); }
  // Whether the log at the path belongs to this file, and the file itself is gone. The log must not
  // be applied to the file that is at the path now.
  bool hasLeftItsLog() const { return identity_.hasLeftItsLog(path_); }
  // Whether another folder, or none, is at the path of the folder that was opened.
  bool isFolderReplaced() const { return identity_.isFolderReplaced(); }

  // Whether somebody may have written since the last `readChanges` began. Costs one load from
  // shared memory, no system call.
  bool mayHaveChanged() const { return stamp_.isAttached() ? stamp_.isNew() : !unchanging_; }

  // Hands over all rows in the order of writing, and compares their number with the index's.
  Outcome readAll(const Receiver& receive);

  // Hands over the rows that others wrote since the last call of either.
  Outcome readChanges(const Receiver& receive);

  // Whether older changes were added to the table since the last call. Only `readAll` hands them
  // over.
  bool takeHasOlderChanges() { return std::exchange(hasOlderChanges_, false); }

  // The highest number of a change that was read or written.
  std::int64_t lastChange() const { return lastChange_; }

  // The highest number in the file, whether it was read or not.
  std::optional<std::int64_t> newestChange() {
    return number("SELECT max(change) FROM preferences");
  }

  // Writes all changes or none, and numbers them. First hands over what others wrote. A change that
  // has a number already was lost by the file: it keeps its number where possible, and is left out
  // and numbered 0 when the file has a newer change of its key. The history remembers the other
  // changes in the same transaction. After the return, the end of the process does not undo the
  // changes.
  Outcome write(std::span<PreferenceChange> changes, const Receiver& receive,
                const RowNumbers& rows, const HistoryRequest& history);

  // What the history remembers of a key, or of every key if it is empty, the newest change first.
  // `isInForce` is not set.
  Result<std::vector<RememberedChange>> history(std::string_view key);

  // Returns when all writes survive a power cut. Before, a power cut undoes the last writes and
  // does no other harm.
  Outcome synchronize();

  // As `synchronize`, and copies the log into the file unless another process uses the log. For the
  // last writes before the file is closed: at close, SQLite would copy the log and wait for the
  // disk once more.
  Outcome checkpoint();

  // Copies all rows into a new store at another path, marked as a good copy. On success the new
  // store is complete and on the disk; otherwise there is none.
  Outcome copyTo(const std::filesystem::path& path);

  // Whether the history is as it was written. Reads all of it.
  bool isHistorySound() const { return history_.isSound(); }

  // The faults that SQLite finds in the file, a line each. Reads all of the file.
  std::vector<std::string> faults();

private:
  // What tells a store from other databases.
  struct Marks {
    bool hasObjects = false;       // tables, indices and the like
    bool hasOtherObjects = false;  // neither tables nor indices
    bool isOurs = false;
    std::int64_t formatVersion = 0;
  };

  Outcome connect(bool forReading);
  Outcome makeUnshared();
  std::optional<Marks> readMarks();
  bool readMarksOfHeader(Marks& marks) const;
  Outcome identify(const std::optional<Marks>& marks);
  Outcome setUp();
  Outcome useWriteAheadLog();
  Outcome prepareToRead();
  Outcome prepareToWrite();
  void findStamp();
  Outcome checkLog(std::uintmax_t logBytes);
  std::optional<std::int64_t> number(const char* query);
  Outcome readRows(sqlite3_stmt* select, const Receiver& receive);
  bool isLogEmpty() const;
  // Null when SQLite has no file open.
  sqlite3_file* mainFile() const;
  // The log, once the file was read; null when the file has none. Outside of a write, a file
  // without a log has no journal open.
  sqlite3_file* logFile() const;
  Outcome writeInTransaction(std::span<PreferenceChange> changes, const Receiver& receive,
                             const RowNumbers& rows, const HistoryRequest& history);
  Outcome writeOne(PreferenceChange& change, std::int64_t& last, const RowNumbers& rows);
  Outcome bringAlong(PreferenceChange& change, std::int64_t& last);
  Outcome replaceRow(const PreferenceChange& change, std::int64_t number, std::int64_t row);
  Result<bool> removeRow(std::string_view key, std::int64_t row);
  std::int64_t rowInIndex(std::string_view key);
  Outcome succeed();
  Error fail(State state, QEVSettings::StorageProblem problem, std::string message);
  Error damage();
  Error failure(const char* what);
  static int wait(void* self, int attempts);

  std::filesystem::path path_;
  SQLiteFileUse use_;  // before the database, which is closed first
  StoreIdentity identity_;
  Database database_;
  Statement begin_;
  Statement selectAll_;
  Statement selectNew_;  // made when it is needed first
  Statement insert_;
  Statement delete_;
  Statement commit_;
  PreferencesHistory history_{database_};
  State state_ = State::closed;
  QEVSettings::StorageProblem problem_ = QEVSettings::StorageProblem::failing;
  bool readOnly_ = false;
  bool unchanging_ = false;
  bool usesLog_ = false;
  bool wasLogEmpty_ = false;  // when it was opened
  bool isLogWhole_ = false;   // nothing in the log was left out when SQLite opened it
  bool endsWithCheckpoint_ = false;
  bool isSynchronized_ = true;
  bool hasOlderChanges_ = false;
  bool isStuck_ = false;  // the last wait for another process was in vain
  std::chrono::steady_clock::time_point waitingSince_;
  std::int64_t lastChange_ = 0;
  CommitStamp stamp_;  // the last member: it lets go of the index before the database is closed
};

}  // namespace foundation
