// SPDX-License-Identifier: MIT
#include "store/PreferencesFile.hpp"

#include "foundation/PreferenceCoding.hpp"
#include "store/StoreCreation.hpp"
#include "store/recovery/GoodCopy.hpp"
#include "system/FileDescriptor.hpp"
#include "system/ProcessLimits.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace foundation {

using QEVSettings::StorageProblem;

namespace {

// While one lives, SQLite does not sync the header of a log that it starts. It does so because a
// log may start over older frames, which must not be taken for new ones. A new log has none, and
// `checkpoint` syncs it before it writes to the file. No other checkpoint may come before that.
class WithoutSync {
public:
  explicit WithoutSync(const Database& database) : database_(database) {
    execute(database_, "PRAGMA synchronous = OFF; PRAGMA wal_autocheckpoint = 0");
  }
  WithoutSync(const WithoutSync&) = delete;
  WithoutSync& operator=(const WithoutSync&) = delete;
  ~WithoutSync() { execute(database_, kSynchronizing); }

private:
  const Database& database_;
};

}  // namespace

void cueWatchers(const std::filesystem::path& store) {
  ::utimensat(AT_FDCWD, store.c_str(), nullptr, AT_SYMLINK_NOFOLLOW);
}

std::optional<Error> PreferencesFile::refusalOf(std::string_view key,
                                                const QEVSettings::PreferenceValue* value) {
  // The limit of a row in SQLite is 1,000,000,000 bytes, which includes a few of its own.
  constexpr std::uint64_t maximumRowBytes = 999'000'000;
  std::uint64_t bytes = key.size();
  if (value != nullptr) {
    if (const auto* text = value->asString()) bytes += text->size();
    if (const auto* data = value->asData()) bytes += data->size();
    if (value->asArray() != nullptr || value->asDictionary() != nullptr) {
      const auto encoded = encodedPreference(*value);
      if (!encoded) {
        return Error{"a value is nested deeper than " + std::to_string(kMaximumPreferenceDepth) +
                     " levels; store it in fewer"};
      }
      bytes += encoded->size();
    }
  }
  if (bytes > maximumRowBytes)
    return Error{"a value is larger than 999 MB; store it in a file of its own"};
  return std::nullopt;
}

Outcome PreferencesFile::readChanges(const Receiver& receive) {
  if (!selectNew_) {
    selectNew_ = prepare(database_, kSelectNew);
    if (!selectNew_) return failure("read");
  }
  sqlite3_bind_int64(selectNew_.get(), 1, lastChange_);
  return readRows(selectNew_.get(), receive);
}

// Hands over the rows that the statement selects, which are all above the last change.
Outcome PreferencesFile::readRows(sqlite3_stmt* select, const Receiver& receive) {
  if (isIndexCut()) {
    return fail(State::unusable, StorageProblem::failing,
                path_.string() + " lost the index of its log");
  }
  const ResetAtEnd reset(select);
  // Read before the rows: what is committed during the read is looked for again.
  const std::uint64_t found = stamp_.value();
  const bool isFirst = lastChange_ == 0;
  int code = sqlite3_step(select);
  bool isAsWritten = true;
  for (; code == SQLITE_ROW; code = sqlite3_step(select)) {
    auto change = changeOfRow(select);
    // Rows out of order show that two pages were swapped.
    isAsWritten = change.has_value() && change->number > lastChange_;
    if (!isAsWritten) break;
    const std::int64_t number = change->number;
    if (!isFirst && change->key == kRecoveryKey) hasOlderChanges_ = true;
    receive(*std::move(change));
    lastChange_ = number;
  }
  if (!isAsWritten) return damage();
  if (code != SQLITE_DONE) return failure("read");
  stamp_.markSeen(found);
  return succeed();
}

Outcome PreferencesFile::readAll(const Receiver& receive) {
  lastChange_ = 0;
  std::int64_t rows = 0;
  std::int64_t entries = 0;
  auto outcome = readRows(selectAll_.get(), [&](PreferenceChange change) {
    if (rows++ == 0) entries = sqlite3_column_int64(selectAll_.get(), kEntriesColumn);
    receive(std::move(change));
  });
  if (!outcome) return outcome;
  if (rows == 0) {
    const auto found = number(kCountEntries);
    if (!found) return failure("read");
    // Another process may have written the first row meanwhile.
    if (!mayHaveChanged()) entries = *found;
  }
  return entries == rows ? done() : Outcome(damage());
}

Outcome PreferencesFile::write(std::span<PreferenceChange> changes, const Receiver& receive,
                               const RowNumbers& rows, const HistoryRequest& history) {
  if (readOnly_) {
    return fail(
        State::unusable, StorageProblem::notWritable,
        path_.string() +
            " cannot be written; allow writing to it and to its folder, or choose another file");
  }
  if (auto outcome = prepareToWrite(); !outcome) return outcome;
  if (endsWithCheckpoint_ && isLogEmpty()) {
    const WithoutSync unsynchronized(database_);
    if (foundation::run(begin_) != SQLITE_DONE) return failure("write");
    const RollBackAtEnd transaction(database_.get());
    // Otherwise another process has written before this one took the lock.
    if (isLogEmpty()) return writeInTransaction(changes, receive, rows, history);
  }
  if (foundation::run(begin_) != SQLITE_DONE) return failure("write");
  const RollBackAtEnd transaction(database_.get());
  return writeInTransaction(changes, receive, rows, history);
}

bool PreferencesFile::isLogEmpty() const {
  struct stat found {};
  return ::lstat((path_.string() + "-wal").c_str(), &found) == 0 && found.st_size == 0;
}

Outcome PreferencesFile::writeInTransaction(std::span<PreferenceChange> changes,
                                            const Receiver& receive, const RowNumbers& rows,
                                            const HistoryRequest& history) {
  auto outcome = mayHaveChanged() ? readChanges(receive) : succeed();
  if (outcome && history_.begin(history, changes.size()) != SQLITE_OK) outcome = failure("write");
  const std::uint32_t commitsBefore = stamp_.commitCount();
  std::int64_t last = lastChange_;
  bool bringsAlong = false;
  for (PreferenceChange& change : changes) {
    if (!outcome) break;
    bringsAlong = bringsAlong || change.number != 0;
    outcome = change.number != 0 ? bringAlong(change, last) : writeOne(change, last, rows);
  }
  if (outcome && bringsAlong) {
    last += kRecoveryStep;
    const PreferenceChange mark{.key = std::string(kRecoveryKey), .value = std::nullopt};
    outcome = replaceRow(mark, last, rowInIndex(kRecoveryKey));
  }
  if (outcome && history_.end() != SQLITE_OK) outcome = failure("write");
  if (outcome && foundation::run(commit_) != SQLITE_DONE) outcome = failure("write");
  if (!outcome) return outcome;
  lastChange_ = last;
  isSynchronized_ = false;
  // The own commit is no news, unless another process committed as well.
  const std::uint64_t found = stamp_.value();
  if (stamp_.commitCount() == commitsBefore + 1) stamp_.markSeen(found);
  return succeed();
}

Outcome PreferencesFile::writeOne(PreferenceChange& change, std::int64_t& last,
                                  const RowNumbers& rows) {
  const std::int64_t row = rows(change.key);
  if (history_.remember(change, last + 1, row) != SQLITE_OK) return failure("write");
  auto outcome = replaceRow(change, last + 1, row);
  if (outcome) change.number = ++last;
  return outcome;
}

// Writes a change that the file lost. It keeps its number, because other processes may remember
// newer changes of other keys that have higher numbers.
Outcome PreferencesFile::bringAlong(PreferenceChange& change, std::int64_t& last) {
  const std::int64_t row = rowInIndex(change.key);
  if (row >= change.number) {
    change.number = 0;
    return done();
  }
  const Statement taken = prepare(database_, "SELECT 1 FROM preferences WHERE change = ?1");
  sqlite3_bind_int64(taken.get(), 1, change.number);
  const bool isTaken = sqlite3_step(taken.get()) == SQLITE_ROW;
  sqlite3_reset(taken.get());
  const std::int64_t number = isTaken ? last + 1 : change.number;
  auto outcome = replaceRow(change, number, row);
  if (outcome) {
    change.number = number;
    last = std::max(last, number);
  }
  return outcome;
}

// Replaces the row that holds the key. `row` is its number, or 0 for a key that should be new.
Outcome PreferencesFile::replaceRow(const PreferenceChange& change, std::int64_t number,
                                    std::int64_t row) {
  if (row != 0) {
    if (auto removed = removeRow(change.key, row); !removed) return removed.error();
  }
  int code = runWithChange(insert_, change, number);
  if (code == SQLITE_DONE) return done();
  if ((code & 0xFF) != SQLITE_CONSTRAINT) return failure("write");
  // The index has the key. Its entry must lead to the key's own row.
  const auto removed = removeRow(change.key, rowInIndex(change.key));
  if (!removed) return removed.error();
  if (!*removed) return damage();
  code = runWithChange(insert_, change, number);
  return code == SQLITE_DONE ? done() : Outcome(failure("write"));
}

// Removes the row with this number if it holds the key; returns whether it did.
Result<bool> PreferencesFile::removeRow(std::string_view key, std::int64_t row) {
  sqlite3_bind_int64(delete_.get(), 1, row);
  // SQLite binds NULL for a null pointer, which an empty key may have.
  sqlite3_bind_blob64(delete_.get(), 2, key.empty() ? "" : key.data(), key.size(), SQLITE_STATIC);
  if (foundation::run(delete_) != SQLITE_DONE) return failure("write");
  return sqlite3_changes(database_.get()) == 1;
}

std::int64_t PreferencesFile::rowInIndex(std::string_view key) {
  const Statement statement = prepare(database_, "SELECT change FROM preferences WHERE key = ?1");
  sqlite3_bind_blob64(statement.get(), 1, key.empty() ? "" : key.data(), key.size(), SQLITE_STATIC);
  return sqlite3_step(statement.get()) == SQLITE_ROW ? sqlite3_column_int64(statement.get(), 0) : 0;
}

sqlite3_file* PreferencesFile::mainFile() const {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_FILE_POINTER,
                       static_cast<void*>(&file));
  return file != nullptr && file->pMethods != nullptr ? file : nullptr;
}

sqlite3_file* PreferencesFile::logFile() const {
  sqlite3_file* journal = nullptr;
  sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER,
                       static_cast<void*>(&journal));
  return journal != nullptr && journal->pMethods != nullptr ? journal : nullptr;
}

Outcome PreferencesFile::synchronize() {
  if (isSynchronized_) return done();
  sqlite3_file* const log = logFile();
  if (log != nullptr && log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) != SQLITE_OK) {
    const bool isFull = errno == ENOSPC || errno == EDQUOT;
    return fail(State::unusable, isFull ? StorageProblem::diskFull : StorageProblem::failing,
                "cannot write " + path_.string() + " (" + textOfError(errno) + "); check the disk");
  }
  isSynchronized_ = true;
  cueWatchers(path_);
  return done();
}

Outcome PreferencesFile::checkpoint() {
  if (isSynchronized_) return done();
  // A log that was in use before is left to the process that uses it.
  if (!wasLogEmpty_ || !isLogWhole_ || isIndexCut() || isReplaced()) return synchronize();
  int frames = 0;
  int copied = 0;
  // Syncs the log before it writes to the file, and then the file.
  const int code = sqlite3_wal_checkpoint_v2(database_.get(), "main", SQLITE_CHECKPOINT_PASSIVE,
                                             &frames, &copied);
  // After a sync that failed, the next one may succeed although the disk has lost writes.
  if ((code & 0xFF) == SQLITE_IOERR) return failure("write");
  if (code != SQLITE_OK || copied < frames) return synchronize();
  isSynchronized_ = true;
  cueWatchers(path_);
  return done();
}

Outcome PreferencesFile::copyTo(const std::filesystem::path& path) {
  auto outcome = [&]() -> Outcome {
    PreferencesFile copy(path);
    if (auto made = copy.makeUnshared(); !made) return made;
    if (foundation::run(copy.begin_) != SQLITE_DONE) return copy.failure("write");
    Outcome written = done();
    const auto read = readAll([&](const PreferenceChange& change) {
      if (!written || runWithChange(copy.insert_, change, change.number) == SQLITE_DONE) return;
      written = copy.failure("write");
    });
    if (!read || !written) return read ? written : read;
    const std::string mark =
        "PRAGMA schema_version = " + std::to_string(lowBitsOfChange(lastChange_));
    const bool isWhole =
        foundation::run(copy.commit_) == SQLITE_DONE && execute(copy.database_, mark.c_str());
    return isWhole ? done() : Outcome(copy.failure("write"));
  }();
  if (outcome) {
    const FileDescriptor written(::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
    if (!written || ::fsync(written.get()) != 0)
      outcome = Error{"cannot write " + path.string() + "; check the disk"};
  }
  if (!outcome) removeUnsharedStore(path);
  return outcome;
}

Result<std::vector<RememberedChange>> PreferencesFile::history(std::string_view key) {
  if (isIndexCut()) {
    return fail(State::unusable, StorageProblem::failing,
                path_.string() + " lost the index of its log");
  }
  std::vector<RememberedChange> changes;
  if (history_.read(key, changes) != SQLITE_OK) return failure("read");
  return changes;
}

std::vector<std::string> PreferencesFile::faults() {
  std::vector<std::string> found;
  const Statement statement = prepare(database_, "PRAGMA integrity_check(10)");
  int code = sqlite3_step(statement.get());
  for (; code == SQLITE_ROW; code = sqlite3_step(statement.get())) {
    const auto* line = reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0));
    if (line != nullptr && std::string_view(line) != "ok") found.emplace_back(line);
  }
  if (code != SQLITE_DONE) found.emplace_back(sqlite3_errmsg(database_.get()));
  return found;
}

}  // namespace foundation
