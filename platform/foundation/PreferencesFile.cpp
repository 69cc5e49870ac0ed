#include "PreferencesFile.hpp"

#include "FileDescriptor.hpp"
#include "PreferenceCell.hpp"
#include "PreferencesCompanions.hpp"
#include "ProcessLimits.hpp"
#include "foundation/PreferenceCoding.hpp"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace foundation {

void syncFolder(const std::filesystem::path& folder) {
  if (const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)); opened) {
    ::fsync(opened.get());
  }
}

void cueWatchers(const std::filesystem::path& store) {
  ::utimensat(AT_FDCWD, store.c_str(), nullptr, AT_SYMLINK_NOFOLLOW);
}

namespace {

constexpr int kApplicationId = 0x5A565052;  // "ZVPR" at a fixed place of the file
constexpr int kFormatVersion = 1;
// Of SQLite's cache. Reading passes through it once, and what is written at once should fit.
constexpr int kPagesToRead = 50;
constexpr int kPagesToWrite = 500;
constexpr auto kLongestWait = std::chrono::milliseconds(500);
// SQLite holds a row of a thousand million bytes, of which its own bookkeeping takes a few.
constexpr std::uint64_t kMaximumRowBytes = 999'000'000;

std::string reason(int error) { return std::generic_category().message(error); }

// A folder of ours is nobody else's, whatever the umask.
Outcome makeFolders(const std::filesystem::path& folder) {
  std::error_code error;
  if (folder.empty() || std::filesystem::is_directory(folder, error)) return done();
  if (auto outcome = makeFolders(folder.parent_path()); !outcome) return outcome;
  if (::mkdir(folder.c_str(), 0700) == 0) {
    ::chmod(folder.c_str(), 0700);
    syncFolder(folder.parent_path());
  } else if (errno != EEXIST) {
    return Error{"cannot create the folder " + folder.string() + " (" + reason(errno) +
                 "); create it, or choose a file elsewhere"};
  }
  if (!std::filesystem::is_directory(folder, error)) {
    return Error{folder.string() + " is no folder; choose a file elsewhere"};
  }
  return done();
}

void removeStore(const std::filesystem::path& path) {
  for (const char* ending : {"", "-wal", "-shm", "-journal"}) ::unlink((path.string() + ending).c_str());
}

std::string columnText(sqlite3_stmt* statement, int column) {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
  return bytes != nullptr ? std::string(bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)))
                          : std::string();
}

// The file and its log under names in a new folder, in which SQLite may do what it likes. Removed at the end.
class PrivateCopy {
public:
  explicit PrivateCopy(const std::filesystem::path& original) {
    std::error_code error;
    std::string folder = (std::filesystem::temp_directory_path(error) / "preferences-XXXXXX").string();
    if (error || ::mkdtemp(folder.data()) == nullptr) return;
    folder_ = folder;
    for (const char* ending : {"", "-wal"}) {
      std::filesystem::copy_file(original.string() + ending, path().string() + ending, error);
    }
    ::chmod(path().c_str(), 0600);
  }
  PrivateCopy(const PrivateCopy&) = delete;
  PrivateCopy& operator=(const PrivateCopy&) = delete;
  ~PrivateCopy() {
    std::error_code error;
    if (!folder_.empty()) std::filesystem::remove_all(folder_, error);
  }

  std::filesystem::path path() const { return folder_ / "copy.sqlite"; }

private:
  std::filesystem::path folder_;
};

}  // namespace

void PreferencesFile::Close::operator()(sqlite3* database) const {
  const FileLimitSignal masked;
  spareCutIndex(database);
  sqlite3_close_v2(database);
}
void PreferencesFile::Close::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Outcome PreferencesFile::open() {
  state_ = State::unusable;
  if (!path_.is_absolute() || !path_.has_filename()) return Error{"'" + path_.string() + "' names no file; choose one"};
  if (auto outcome = makeFolders(path_.parent_path()); !outcome) return outcome;
  // A person's folders may be links; the file and what stands next to it may not.
  std::error_code error;
  if (auto folder = std::filesystem::canonical(path_.parent_path(), error); !error) path_ = folder / path_.filename();
  if (auto outcome = makeFile(); !outcome) return outcome;
  const auto mode = inspect();
  if (!mode) return mode.error();
  // As private as it should have been made, and no more writable than it is.
  if ((*mode & 077U) != 0) ::chmod(path_.c_str(), *mode & 0700U);
  return connect(false);
}

Outcome PreferencesFile::openForReading() {
  state_ = State::unusable;
  std::error_code error;
  if (auto folder = std::filesystem::canonical(path_.parent_path(), error); !error) path_ = folder / path_.filename();
  if (const auto mode = inspect(); !mode) return mode.error();
  return connect(true);
}

// A new store appears complete or not at all, so that an empty file is always a damaged one.
Outcome PreferencesFile::makeFile() const {
  struct stat found {};
  if (::lstat(path_.c_str(), &found) == 0) return done();
  const auto cannot = [&](int why) {
    return Error{"cannot create " + path_.string() + " (" + reason(why) +
                 "); allow writing to its folder, or choose a file elsewhere"};
  };
  if (errno != ENOENT) return cannot(errno);
  std::string temporary = path_.string() + ".XXXXXX";
  {
    const FileDescriptor made(::mkostemp(temporary.data(), O_CLOEXEC));
    if (!made) return cannot(errno);
    ::fchmod(made.get(), 0600);
  }
  auto outcome = [&] {
    PreferencesFile fresh(temporary);
    return fresh.connect(false);
  }();
  if (outcome && ::link(temporary.c_str(), path_.c_str()) != 0 && errno != EEXIST &&
      ::rename(temporary.c_str(), path_.c_str()) != 0) {
    outcome = cannot(errno);
  }
  removeStore(temporary);
  if (outcome) syncFolder(path_.parent_path());
  return outcome;
}

// Must run before SQLite opens the file, and opens none itself: closing any descriptor of the file would drop
// SQLite's locks.
Result<unsigned> PreferencesFile::inspect() {
  struct stat found {};
  if (::lstat(path_.c_str(), &found) != 0) {
    return Error{"cannot read " + path_.string() + " (" + reason(errno) + "); check its name and its permissions"};
  }
  if (S_ISLNK(found.st_mode)) return Error{path_.string() + " is a symbolic link; choose the file that it leads to"};
  if (S_ISDIR(found.st_mode)) return Error{path_.string() + " is a folder; choose a file"};
  if (!S_ISREG(found.st_mode)) return Error{path_.string() + " is no regular file; choose another"};
  if (found.st_uid != ::geteuid()) {
    return Error{path_.string() + " belongs to another user; choose a file of your own"};
  }
  if (auto problem = companionProblem(path_)) return *std::move(problem);
  if (CommitStamp::isCutIndexInUse(path_)) return Error{path_.string() + " lost the index of its log; try again"};
  device_ = found.st_dev;
  node_ = found.st_ino;
  return static_cast<unsigned>(found.st_mode);
}

bool PreferencesFile::isReplaced() const {
  if (isIndexCut()) return true;
  struct stat found {};
  return ::lstat(path_.c_str(), &found) != 0 ? errno == ENOENT : found.st_dev != device_ || found.st_ino != node_;
}

std::optional<Error> PreferencesFile::refusalOf(const PreferenceChange& change) {
  std::uint64_t bytes = change.key.size();
  if (change.value) {
    if (const auto* text = change.value->asString()) bytes += text->size();
    if (const auto* data = change.value->asData()) bytes += data->size();
    if (change.value->asArray() != nullptr || change.value->asDictionary() != nullptr) {
      const auto encoded = encodedPreference(*change.value);
      if (!encoded) {
        return Error{"a value is nested deeper than " + std::to_string(kMaximumPreferenceDepth) +
                     " levels; store it in fewer"};
      }
      bytes += encoded->size();
    }
  }
  if (bytes > kMaximumRowBytes) return Error{"a value is larger than 999 MB; store it in a file of its own"};
  return std::nullopt;
}

// Waits for another process in small steps, so that several writers take turns, for a moment in all; when
// that was in vain, not again before an operation succeeds.
int PreferencesFile::wait(void* self, int attempts) {
  auto& file = *static_cast<PreferencesFile*>(self);
  const auto now = std::chrono::steady_clock::now();
  if (attempts == 0) file.waitingSince_ = now;
  file.isStuck_ = file.isStuck_ || now - file.waitingSince_ > kLongestWait;
  if (file.isStuck_) return 0;
  ::usleep(500 + 100 * static_cast<unsigned>(::getpid() % 10));
  return 1;
}

Outcome PreferencesFile::connect(bool forReading) {
  sqlite3* opened = nullptr;
  const int flags = (forReading ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) | SQLITE_OPEN_NOFOLLOW |
                    SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
  const int code = sqlite3_open_v2(path_.c_str(), &opened, flags, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) return failure("open");
  sqlite3_busy_handler(database_.get(), &PreferencesFile::wait, this);
  readOnly_ = forReading || sqlite3_db_readonly(database_.get(), "main") == 1;
  const auto objects = objectCount();
  if (!objects) {
    // Where SQLite's companion files cannot be made, nobody can be writing either.
    const int problem = sqlite3_errcode(database_.get()) & 0xFF;
    if (problem == SQLITE_CANTOPEN || problem == SQLITE_READONLY || problem == SQLITE_PERM) return connectUnchanging();
  }
  if (auto outcome = identify(objects); !outcome) return outcome;
  return prepareToRead();
}

Outcome PreferencesFile::connectUnchanging() {
  database_.reset();
  const PrivateCopy copy(path_);
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(copy.path().c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) return failure("open");
  readOnly_ = true;
  unchanging_ = true;
  if (auto outcome = identify(objectCount()); !outcome) return outcome;
  // The files may go while they are open.
  return prepareToRead();
}

// A file that nobody knows before it is complete: there is nothing to return to, and nothing to sync
// before its end.
Outcome PreferencesFile::makeUnshared() {
  {
    const FileDescriptor made(::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!made)
      return Error{"cannot create " + path_.string() + " (" + reason(errno) + "); allow writing to its folder"};
    ::fchmod(made.get(), 0600);
  }
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path_.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK || !run("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF")) return failure("open");
  if (auto outcome = setUp(); !outcome) return outcome;
  return prepareToWrite();
}

// Changing to the log needs the file for itself, and SQLite does not always wait for that.
Outcome PreferencesFile::useWriteAheadLog() {
  const auto start = std::chrono::steady_clock::now();
  while (!run("PRAGMA journal_mode = WAL")) {
    if ((sqlite3_errcode(database_.get()) & 0xFF) != SQLITE_BUSY || isStuck_ ||
        std::chrono::steady_clock::now() - start > kLongestWait) {
      return failure("open");
    }
    sqlite3_sleep(5);
  }
  usesLog_ = true;
  return done();
}

// How many tables and the like the file has; opens it in truth.
std::optional<std::int64_t> PreferencesFile::objectCount() {
  sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  run("PRAGMA cell_size_check = ON; PRAGMA cache_size = " + std::to_string(kPagesToRead));
  return number("SELECT count(*) FROM sqlite_schema");
}

// Says whether the file is a store of ours, and makes one of an empty file.
Outcome PreferencesFile::identify(std::optional<std::int64_t> objects) {
  if (!objects) return failure("read");
  const bool isOurs = number("PRAGMA application_id") == kApplicationId;
  if (*objects > 0 && !isOurs) return fail(State::foreign, path_.string() + " is a database of another program");
  if (isOurs && number("PRAGMA user_version").value_or(0) > kFormatVersion) {
    return fail(State::unusable,
                path_.string() + " was written by a newer release; update this program, or choose another file");
  }
  if (*objects == 0 && readOnly_) {
    return fail(State::damaged, path_.string() + " is empty and cannot be written");
  }
  if (!readOnly_) {
    if (auto outcome = useWriteAheadLog(); !outcome) return outcome;
  }
  // A view of the table's name could have rows without end.
  if (number("SELECT count(*) FROM sqlite_schema WHERE type NOT IN ('table', 'index')").value_or(0) > 0) {
    return fail(State::damaged, path_.string() + " is damaged");
  }
  return *objects > 0 ? done() : setUp();
}

Outcome PreferencesFile::setUp() {
  const std::string mark = "PRAGMA application_id = " + std::to_string(kApplicationId) +
                           "; PRAGMA user_version = " + std::to_string(kFormatVersion);
  const bool made = run("BEGIN IMMEDIATE") &&
                    run("CREATE TABLE IF NOT EXISTS preferences (change INTEGER PRIMARY KEY, key BLOB NOT NULL UNIQUE, "
                        "type INTEGER, value ANY, sum INTEGER NOT NULL) STRICT") &&
                    run(mark) && run("COMMIT");
  if (made) return done();
  const Error error = failure("set up");
  run("ROLLBACK");
  return error;
}

PreferencesFile::Statement PreferencesFile::prepared(const char* text) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v3(database_.get(), text, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  return Statement(statement);
}

Outcome PreferencesFile::prepareToRead() {
  select_ = prepared("SELECT change, key, type, value, sum FROM preferences WHERE change > ?1 ORDER BY change");
  if (!select_) {
    const bool isOtherTable = (sqlite3_errcode(database_.get()) & 0xFF) == SQLITE_ERROR;
    return isOtherTable ? fail(State::damaged, path_.string() + " is damaged") : failure("read");
  }
  findStamp();
  return succeed();
}

Outcome PreferencesFile::prepareToWrite() {
  if (insert_) return done();
  // Keeps the file consistent whatever happens; what makes a write outlive a power cut is `synchronize`.
  if (usesLog_ &&
      !run("PRAGMA synchronous = NORMAL; PRAGMA journal_size_limit = 4194304; PRAGMA wal_autocheckpoint = 4000")) {
    return failure("write");
  }
  // Else a page that is given up would be written once more, with zeros.
  run("PRAGMA secure_delete = FAST; PRAGMA cache_size = " + std::to_string(kPagesToWrite));
  begin_ = prepared("BEGIN IMMEDIATE");
  commit_ = prepared("COMMIT");
  insert_ = prepared("REPLACE INTO preferences (key, type, value, sum) VALUES (?1, ?2, ?3, ?4)");
  return begin_ && commit_ && insert_ ? done() : Outcome(failure("write"));
}

// In WAL mode every commit ends by rewriting a header in memory that all processes share. The last eight
// of its first 48 bytes are a checksum of the others, among them a count of the commits: two looks
// that find the same eight bytes have no commit between them.
void PreferencesFile::findStamp() {
  constexpr int regionBytes = 32768;
  constexpr int stampOffset = 40;
  sqlite3_file* file = nullptr;
  volatile void* region = nullptr;
  if (unchanging_ ||
      sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)) !=
          SQLITE_OK ||
      file == nullptr || file->pMethods == nullptr || file->pMethods->iVersion < 2) {
    return;
  }
  if (readOnly_) {
    const Statement journal = prepared("PRAGMA journal_mode");
    usesLog_ = journal && sqlite3_step(journal.get()) == SQLITE_ROW && columnText(journal.get(), 0) == "wal";
  }
  if (!usesLog_) return;
  file->pMethods->xShmMap(file, 0, regionBytes, 0, &region);
  if (region != nullptr) {
    stamp_.attach(
        path_, reinterpret_cast<std::uint64_t*>(const_cast<char*>(static_cast<volatile char*>(region)) + stampOffset));
  }
}

Outcome PreferencesFile::readChanges(const Receiver& receive) {
  if (isIndexCut()) return fail(State::unusable, path_.string() + " lost the index of its log; it is opened anew");
  const ResetAtEnd reset(select_.get());
  // Taken first: what is committed while this reads is looked for again.
  const std::uint64_t found = stamp_.value();
  sqlite3_bind_int64(select_.get(), 1, lastChange_);
  int code = sqlite3_step(select_.get());
  bool isAsWritten = true;
  for (; code == SQLITE_ROW && isAsWritten; code = sqlite3_step(select_.get())) {
    PreferenceChange change{.key = columnText(select_.get(), 1), .value = std::nullopt};
    const auto cell = PreferenceCell::ofColumns(select_.get(), 2, 3);
    const std::int64_t number = sqlite3_column_int64(select_.get(), 0);
    // Pages that are named twice, or in a circle, would give rows without end.
    isAsWritten = number > lastChange_ && cell.sum(change.key) == sqlite3_column_int64(select_.get(), 4);
    change.value = cell.value();
    isAsWritten = isAsWritten && change.value.has_value() != cell.isRemoval();
    if (!isAsWritten) break;
    receive(std::move(change));
    lastChange_ = number;
  }
  if (!isAsWritten) return fail(State::damaged, path_.string() + " is damaged");
  if (code != SQLITE_DONE) return failure("read");
  stamp_.markSeen(found);
  return succeed();
}

Outcome PreferencesFile::write(std::span<const PreferenceChange> changes, const Receiver& receive) {
  if (readOnly_) {
    return fail(State::unusable,
                path_.string() + " cannot be written; allow writing to it and to its folder, or choose another file");
  }
  if (auto outcome = prepareToWrite(); !outcome) return outcome;
  if (!run(begin_)) return failure("write");
  const RollBackAtEnd transaction(database_.get());
  auto outcome = mayHaveChanged() ? readChanges(receive) : succeed();
  const std::uint32_t commitsBefore = stamp_.commitCount();
  std::int64_t last = lastChange_;
  for (const PreferenceChange& change : changes) {
    if (!outcome) break;
    if (!insert(change)) outcome = failure("write");
    last = sqlite3_last_insert_rowid(database_.get());
  }
  if (outcome && !run(commit_)) outcome = failure("write");
  if (!outcome) return outcome;
  lastChange_ = last;
  isSynchronized_ = false;
  // Nothing new to this object, unless another process has committed meanwhile.
  const std::uint64_t found = stamp_.value();
  if (stamp_.commitCount() == commitsBefore + 1) stamp_.markSeen(found);
  return succeed();
}

Outcome PreferencesFile::synchronize() {
  if (isSynchronized_) return done();
  sqlite3_file* log = nullptr;
  sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, static_cast<void*>(&log));
  if (log != nullptr && log->pMethods != nullptr && log->pMethods->xSync(log, SQLITE_SYNC_NORMAL) != SQLITE_OK) {
    return fail(State::unusable, "cannot write " + path_.string() + " (" + reason(errno) + "); check the disk");
  }
  isSynchronized_ = true;
  cueWatchers(path_);
  return done();
}

bool PreferencesFile::insert(const PreferenceChange& change) {
  const auto cell = PreferenceCell::ofValue(change.value);
  if (!cell) return false;
  sqlite3_stmt* statement = insert_.get();
  sqlite3_clear_bindings(statement);
  // A null pointer would bind NULL, and an empty key may have one.
  sqlite3_bind_blob64(statement, 1, change.key.empty() ? "" : change.key.data(), change.key.size(), SQLITE_STATIC);
  cell->bind(statement, 2, 3);
  sqlite3_bind_int64(statement, 4, cell->sum(change.key));
  const int code = sqlite3_step(statement);
  sqlite3_reset(statement);
  sqlite3_clear_bindings(statement);
  return code == SQLITE_DONE;
}

Outcome PreferencesFile::copyTo(const std::filesystem::path& path) {
  auto outcome = [&]() -> Outcome {
    PreferencesFile copy(path);
    if (auto made = copy.makeUnshared(); !made) return made;
    if (!run(copy.begin_)) return copy.failure("write");
    lastChange_ = 0;
    Outcome written = done();
    const auto read = readChanges([&](const PreferenceChange& change) {
      if (written && change.value && !copy.insert(change)) written = copy.failure("write");
    });
    if (!read || !written) return read ? written : read;
    return run(copy.commit_) ? done() : Outcome(copy.failure("write"));
  }();
  if (outcome) {
    const FileDescriptor written(::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC));
    if (!written || ::fsync(written.get()) != 0) outcome = Error{"cannot write " + path.string() + "; check the disk"};
  }
  if (!outcome) removeStore(path);
  return outcome;
}

std::vector<std::string> PreferencesFile::faults() {
  std::vector<std::string> found;
  const Statement statement = prepared("PRAGMA integrity_check(10)");
  int code = sqlite3_step(statement.get());
  for (; code == SQLITE_ROW; code = sqlite3_step(statement.get())) {
    if (auto line = columnText(statement.get(), 0); line != "ok") found.push_back(std::move(line));
  }
  if (code != SQLITE_DONE) found.emplace_back(sqlite3_errmsg(database_.get()));
  return found;
}

std::optional<std::int64_t> PreferencesFile::number(const char* query) {
  const Statement statement = prepared(query);
  if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW) return std::nullopt;
  return sqlite3_column_int64(statement.get(), 0);
}

bool PreferencesFile::run(const std::string& statements) {
  return sqlite3_exec(database_.get(), statements.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

bool PreferencesFile::run(const Statement& statement) {
  const int code = sqlite3_step(statement.get());
  sqlite3_reset(statement.get());
  return code == SQLITE_DONE;
}

Outcome PreferencesFile::succeed() {
  state_ = State::open;
  isStuck_ = false;
  return done();
}

Error PreferencesFile::fail(State state, std::string message) {
  state_ = state;
  return {std::move(message)};
}

Error PreferencesFile::failure(const char* what) {
  const std::string begin = std::string("cannot ") + what + " " + path_.string() + " (";
  if (const auto limit = limitMet(database_.get())) return fail(State::unusable, begin + *limit);
  switch (sqlite3_errcode(database_.get()) & 0xFF) {
    case SQLITE_NOTADB: return fail(State::foreign, path_.string() + " is no preferences store");
    case SQLITE_CORRUPT: return fail(State::damaged, path_.string() + " is damaged");
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return fail(State::busy, begin + "another program holds it); end that program");
    case SQLITE_FULL: return fail(State::unusable, begin + "the disk is full); make room");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_READONLY:
      return fail(State::unusable,
                  begin + "no permission); allow access to it and to its folder, or choose another file");
    default:
      return fail(State::unusable,
                  begin + sqlite3_errmsg(database_.get()) + "); check the disk and the folder, or choose another file");
  }
}

}  // namespace foundation
