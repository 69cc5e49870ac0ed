// SPDX-License-Identifier: MIT
#include "store/PreferencesFile.hpp"

#include "store/StoreCreation.hpp"
#include "store/recovery/DatabaseBytes.hpp"
#include "store/recovery/DatabaseLog.hpp"
#include "store/recovery/StoreSnapshot.hpp"
#include "system/FileDescriptor.hpp"
#include "system/ProcessLimits.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <span>
#include <utility>

// Opening a preferences file. PreferencesFile.cpp has reading and writing.

namespace foundation {

using QEVSettings::StorageProblem;

namespace {

constexpr auto kLongestWait = std::chrono::milliseconds(500);

std::string_view textOfColumn(sqlite3_stmt* statement, int column) {
  const auto* text = sqlite3_column_text(statement, column);
  return text != nullptr ? reinterpret_cast<const char*>(text) : "";
}

}  // namespace

PreferencesFile::~PreferencesFile() {
  // At close, SQLite copies the log into the file and removes it, without the frames that it does
  // not accept. That is allowed only when the log is known to be whole and to belong to this file.
  if (database_ && !unchanging_ && !readOnly_ &&
      (!isLogWhole_ || isDamaged() || isIndexCut() || isReplaced())) {
    sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }
}

Outcome PreferencesFile::open() {
  // Before SQLite opens the log: it drops all frames after the first damaged one.
  struct stat log {};
  if (::lstat((path_.string() + "-wal").c_str(), &log) != 0 && errno != ENOENT) {
    return fail(State::unusable, StorageProblem::failing,
                unreadable(path_.string() + "-wal").message);
  }
  wasLogEmpty_ = log.st_size == 0;
  if (auto outcome = connect(false); !outcome) return outcome;
  identity_.remember(path_);
  auto outcome = checkLog(static_cast<std::uintmax_t>(log.st_size));
  isLogWhole_ = static_cast<bool>(outcome);
  return outcome;
}

Outcome PreferencesFile::openForReading() { return connect(true); }

Outcome PreferencesFile::openSnapshot() {
  database_.reset();
  state_ = State::unusable;
  readOnly_ = true;
  unchanging_ = true;
  identity_.remember(path_);
  auto snapshot = snapshotOfDatabase(path_);
  if (!snapshot) {
    return fail(State::unusable, StorageProblem::notWritable, snapshot.error().message);
  }
  if (snapshot->hasLostTransactions) return damage();
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(":memory:", &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY, nullptr);
  database_.reset(opened);
  auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(snapshot->bytes.size() + 1));
  if (code != SQLITE_OK || copy == nullptr) return failure("read");
  std::copy(snapshot->bytes.begin(), snapshot->bytes.end(), copy);
  const auto size = static_cast<sqlite3_int64>(snapshot->bytes.size());
  snapshot->bytes = FileBytes();
  if (sqlite3_deserialize(opened, "main", copy, size, size,
                          SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_READONLY) !=
      SQLITE_OK) {
    return failure("read");
  }
  if (auto outcome = identify(readMarks()); !outcome) return outcome;
  return prepareToRead();
}

// Waits for another process in small steps, so that writers take turns. After a wait that timed
// out, there is none until an operation succeeds.
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
  if (CommitStamp::isCutIndexInUse(path_)) {
    return fail(State::unusable, StorageProblem::failing,
                path_.string() + " lost the index of its log; try again");
  }
  state_ = State::unusable;
  sqlite3* opened = nullptr;
  const int flags = (forReading ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) |
                    SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX;
  const int code = sqlite3_open_v2(path_.c_str(), &opened, flags, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) return failure("open");
  sqlite3_busy_handler(database_.get(), &PreferencesFile::wait, this);
  readOnly_ = forReading || sqlite3_db_readonly(database_.get(), "main") == 1;
  const auto marks = readMarks();
  if (!marks) {
    // If SQLite cannot create its files there, no other process can be writing.
    const int problem = sqlite3_errcode(database_.get()) & 0xFF;
    if (problem == SQLITE_CANTOPEN || problem == SQLITE_READONLY || problem == SQLITE_PERM)
      return openSnapshot();
  }
  if (auto outcome = identify(marks); !outcome) return outcome;
  return prepareToRead();
}

// No other process knows the file before it is complete, so that it needs neither a journal nor a
// sync before the end.
Outcome PreferencesFile::makeUnshared() {
  {
    const FileDescriptor made(
        ::open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (!made) {
      return Error{"cannot create " + path_.string() + " (" + textOfError(errno) +
                   "); allow writing to its folder"};
    }
    ::fchmod(made.get(), 0600);
  }
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path_.c_str(), &opened,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(opened);
  unchanging_ = true;
  if (code != SQLITE_OK ||
      !execute(database_, "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF")) {
    return failure("open");
  }
  if (auto outcome = setUp(); !outcome) return outcome;
  return prepareToWrite();
}

// Switching to the log requires exclusive access, and SQLite does not always wait for it.
Outcome PreferencesFile::useWriteAheadLog() {
  const auto start = std::chrono::steady_clock::now();
  while (!execute(database_, "PRAGMA journal_mode = WAL")) {
    if ((sqlite3_errcode(database_.get()) & 0xFF) != SQLITE_BUSY || isStuck_ ||
        std::chrono::steady_clock::now() - start > kLongestWait) {
      return failure("open");
    }
    sqlite3_sleep(5);
  }
  usesLog_ = true;
  return done();
}

// What identifies the file. SQLite reads the file only now.
std::optional<PreferencesFile::Marks> PreferencesFile::readMarks() {
  sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  // The cache has few pages, because a reader uses each page once.
  execute(database_, "PRAGMA cell_size_check = ON; PRAGMA cache_size = 50");
  const Statement objects = prepare(database_, "SELECT type FROM sqlite_schema");
  if (!objects) return std::nullopt;
  Marks marks;
  int code = sqlite3_step(objects.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) return std::nullopt;
  // Before the last row, so that the statements share one transaction and its locks.
  if (!wasLogEmpty_ || !readMarksOfHeader(marks)) {
    marks.isOurs = number("PRAGMA application_id") == kApplicationId;
    marks.formatVersion = number("PRAGMA user_version").value_or(0);
  }
  for (; code == SQLITE_ROW; code = sqlite3_step(objects.get())) {
    const auto type = textOfColumn(objects.get(), 0);
    marks.hasObjects = true;
    marks.hasOtherObjects = marks.hasOtherObjects || (type != "table" && type != "index");
  }
  if (code != SQLITE_DONE) return std::nullopt;
  return marks;
}

// Reads the marks from the header of the file, which is current while the log is empty. Returns
// whether that was possible. Saves two statements, of 7,500 instructions each.
bool PreferencesFile::readMarksOfHeader(Marks& marks) const {
  sqlite3_file* const file = mainFile();
  std::array<std::uint8_t, kApplicationIdOffset + 4> header{};
  if (file == nullptr ||
      file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0) != SQLITE_OK) {
    return false;
  }
  const std::span bytes(header);
  marks.formatVersion = bigEndian32(bytes.subspan(kUserVersionOffset));
  marks.isOurs = bigEndian32(bytes.subspan(kApplicationIdOffset)) == kApplicationId;
  return true;
}

// Checks whether the file is a store, and makes one of an empty file.
Outcome PreferencesFile::identify(const std::optional<Marks>& marks) {
  if (!marks) return failure("read");
  if (marks->hasObjects && !marks->isOurs) return damage();
  if (marks->isOurs && marks->formatVersion > kFormatVersion) {
    return fail(State::unusable, StorageProblem::unusable,
                path_.string() +
                    " was written by a newer release; update this program, or choose another file");
  }
  // A store has its table before it gets its name, so that one without a table is damaged, unless
  // somebody made an empty file.
  if (!marks->hasObjects && (readOnly_ || marks->isOurs)) return damage();
  usesLog_ = logFile() != nullptr;
  if (!readOnly_ && !usesLog_) {
    if (auto outcome = useWriteAheadLog(); !outcome) return outcome;
  }
  // A view could take the table's name and return rows without end.
  if (marks->hasOtherObjects) return damage();
  return marks->hasObjects ? done() : setUp();
}

Outcome PreferencesFile::setUp() {
  const RollBackAtEnd transaction(database_.get());
  return makePreferencesTable(database_) ? done() : Outcome(failure("set up"));
}

Outcome PreferencesFile::prepareToRead() {
  selectAll_ = prepare(database_, kSelectAll);
  if (!selectAll_) {
    const bool isOtherTable = (sqlite3_errcode(database_.get()) & 0xFF) == SQLITE_ERROR;
    return isOtherTable ? Outcome(damage()) : failure("read");
  }
  findStamp();
  return succeed();
}

Outcome PreferencesFile::prepareToWrite() {
  if (insert_) return done();
  // Enough to keep the file consistent. `synchronize` makes writes survive a power cut.
  if (usesLog_ && !(execute(database_, "PRAGMA journal_size_limit = 4194304") &&
                    execute(database_, kSynchronizing))) {
    return failure("write");
  }
  // Avoids writing a freed page once more, with zeros. The cache has room for a transaction.
  execute(database_, "PRAGMA secure_delete = FAST; PRAGMA cache_size = 500");
  // An earlier release would take rows with the new checksum for damage.
  if (number("PRAGMA user_version").value_or(kFormatVersion) < kFormatVersion &&
      !execute(database_, ("PRAGMA user_version = " + std::to_string(kFormatVersion)).c_str())) {
    return failure("write");
  }
  begin_ = prepare(database_, "BEGIN IMMEDIATE");
  commit_ = prepare(database_, "COMMIT");
  insert_ = prepare(database_, kInsertChange);
  // Followed by an insertion, which together is faster than an UPDATE of the row's number.
  delete_ = prepare(database_, "DELETE FROM preferences WHERE change = ?1 AND key = ?2");
  return begin_ && commit_ && insert_ && delete_ ? done() : Outcome(failure("write"));
}

// In WAL mode every commit ends by rewriting a header in memory that all processes share. The last
// eight of its first 48 bytes are a checksum of the others, which include a count of the commits.
// If two looks find the same eight bytes, there was no commit between them.
void PreferencesFile::findStamp() {
  constexpr int regionBytes = 32768;
  constexpr int stampOffset = 40;
  volatile void* region = nullptr;
  if (unchanging_ || !usesLog_) return;
  sqlite3_file* const file = mainFile();
  if (file == nullptr || file->pMethods->iVersion < 2) return;
  file->pMethods->xShmMap(file, 0, regionBytes, 0, &region);
  if (region != nullptr) {
    stamp_.attach(path_, reinterpret_cast<std::uint64_t*>(
                             const_cast<char*>(static_cast<volatile char*>(region)) + stampOffset));
  }
}

// SQLite silently drops all frames after the first damaged one. If the log was longer before it was
// opened than the frames that SQLite has accepted, it has such a frame, or the rest of an older
// log.
Outcome PreferencesFile::checkLog(std::uintmax_t logBytes) {
  constexpr std::uintmax_t headerBytes = 32;
  constexpr std::uintmax_t frameBytes = 24 + kDatabasePageBytes;
  if (!usesLog_ || unchanging_ || logBytes <= headerBytes) return done();
  // `frameCount` is 0 when the index could not be mapped.
  if ((logBytes - headerBytes) / frameBytes <= stamp_.frameCount()) return done();
  // Keeps others from writing during the read.
  if (!readOnly_ && !execute(database_, "BEGIN IMMEDIATE")) return failure("read");
  const RollBackAtEnd transaction(database_.get());
  auto bytes = readRawDatabaseFileIfThere(path_.string() + "-wal");
  if (!bytes) return fail(State::unusable, StorageProblem::failing, bytes.error().message);
  const DatabaseLog log(*std::move(bytes));
  return log.hasLostTransactions() ? Outcome(damage()) : done();
}

std::optional<std::int64_t> PreferencesFile::number(const char* query) {
  const Statement statement = prepare(database_, query);
  if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW) return std::nullopt;
  return sqlite3_column_int64(statement.get(), 0);
}

Outcome PreferencesFile::succeed() {
  state_ = State::open;
  isStuck_ = false;
  return done();
}

Error PreferencesFile::fail(State state, StorageProblem problem, std::string message) {
  state_ = state;
  problem_ = problem;
  return {std::move(message)};
}

Error PreferencesFile::damage() {
  return fail(State::damaged, StorageProblem::failing, path_.string() + " is damaged");
}

Error PreferencesFile::failure(const char* what) {
  const std::string begin = std::string("cannot ") + what + " " + path_.string() + " (";
  if (const auto limit = limitMet(database_.get())) {
    return fail(State::unusable, StorageProblem::failing, begin + *limit);
  }
  const int code = sqlite3_extended_errcode(database_.get());
  if (code == SQLITE_IOERR_SHORT_READ) return damage();
  switch (code & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CONSTRAINT:
    case SQLITE_CORRUPT: return damage();
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return fail(State::busy, StorageProblem::busy,
                  begin + "another program holds it); end that program");
    case SQLITE_FULL:
      return fail(State::unusable, StorageProblem::diskFull,
                  begin + "the disk is full); make room");
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_READONLY:
      return fail(
          State::unusable, StorageProblem::notWritable,
          begin + "no permission); allow access to it and to its folder, or choose another file");
    default:
      return fail(State::unusable, StorageProblem::failing,
                  begin + sqlite3_errmsg(database_.get()) +
                      "); check the disk and the folder, or choose another file");
  }
}

}  // namespace foundation
