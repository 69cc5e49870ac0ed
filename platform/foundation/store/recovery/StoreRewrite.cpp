// SPDX-License-Identifier: MIT
#include "store/recovery/StoreRewrite.hpp"

#include "store/FilePresence.hpp"
#include "store/StoreCreation.hpp"
#include "store/StoreIdentity.hpp"
#include "store/recovery/DatabaseLog.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

namespace foundation {

using QEVSettings::StorageProblem;

namespace {

constexpr std::size_t kHeaderBytes = 100;
constexpr int kLongestWaitMilliseconds = 2000;
// The most copies of one store. Only recoveries that fail again and again after they changed the
// log make more than one.
constexpr int kMaximumUnfinished = 3;

class Backup {
public:
  Backup(sqlite3* to, sqlite3* from) : backup_(sqlite3_backup_init(to, "main", from, "main")) {}
  Backup(const Backup&) = delete;
  Backup& operator=(const Backup&) = delete;
  ~Backup() { finish(); }

  int step(int pages) {
    return backup_ != nullptr ? sqlite3_backup_step(backup_, pages) : SQLITE_ERROR;
  }
  int finish() { return sqlite3_backup_finish(std::exchange(backup_, nullptr)); }

private:
  sqlite3_backup* backup_;
};

bool writeCopy(const FileBytes& bytes, const std::filesystem::path& path) {
  const std::string temporary = path.string() + ".tmp";
  ::unlink(temporary.c_str());
  const FileDescriptor file(
      ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  bool isWritten = file && ::fchmod(file.get(), 0600) == 0;
  for (std::size_t start = 0; isWritten && start < bytes.size();) {
    const ssize_t count = ::write(file.get(), bytes.data() + start, bytes.size() - start);
    isWritten = count > 0 || (count < 0 && errno == EINTR);
    start += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
  }
  isWritten =
      isWritten && ::fsync(file.get()) == 0 && ::rename(temporary.c_str(), path.c_str()) == 0;
  if (!isWritten) {
    const int problem = errno;
    ::unlink(temporary.c_str());
    errno = problem;
  }
  return isWritten;
}

std::filesystem::path unfinishedCopy(const std::filesystem::path& store, int number) {
  return store.string() + ".recovering" + (number > 1 ? "-" + std::to_string(number) : "");
}

Result<FileBytes> logOf(const std::filesystem::path& path) {
  return readRawDatabaseFileIfThere(path.string() + "-wal");
}

// Copies the file and its log, unless a copy with the same bytes exists.
bool keepCopy(const std::filesystem::path& store, const FileBytes& file, const FileBytes& log) {
  const auto unfinished = unfinishedCopiesOf(store);
  if (!unfinished) return false;
  for (const auto& copy : *unfinished) {
    const auto copiedLog = logOf(copy);
    if (readRawDatabaseFile(copy) == file && copiedLog && *copiedLog == log) return true;
  }
  if (unfinished->size() >= kMaximumUnfinished) return true;
  const auto copy = unfinishedCopy(store, static_cast<int>(unfinished->size()) + 1);
  // The log first: the copy of the file shows that both are complete.
  const std::string logCopy = copy.string() + "-wal";
  ::unlink(logCopy.c_str());
  if ((!log.empty() && !writeCopy(log, logCopy)) || !writeCopy(file, copy)) return false;
  syncFolder(store.parent_path());
  return true;
}

// The header of a store in WAL mode, with the file's number of pages.
FileBytes rightHeader(sqlite3* example, std::size_t fileBytes) {
  sqlite3_int64 size = 0;
  unsigned char* bytes = sqlite3_serialize(example, "main", &size, 0);
  if (bytes == nullptr) return {};
  FileBytes header(bytes, bytes + kHeaderBytes);
  sqlite3_free(bytes);
  header[18] = header[19] = 2;
  const auto pages =
      static_cast<std::uint32_t>(std::max<std::size_t>(1, fileBytes / kDatabasePageBytes));
  for (unsigned i = 0; i < 4; ++i)
    header[28 + i] = static_cast<std::uint8_t>(pages >> (24 - 8 * i));
  return header;
}

bool fill(const Database& database, const std::vector<PreferenceChange>& rows) {
  const Statement insert = prepare(database, kInsertChange);
  if (!insert || !execute(database, "BEGIN")) return false;
  for (const PreferenceChange& row : rows) {
    if (runWithChange(insert, row, row.number) != SQLITE_DONE) return false;
  }
  return execute(database, "COMMIT");
}

}  // namespace

Result<std::vector<std::filesystem::path>> unfinishedCopiesOf(const std::filesystem::path& store) {
  std::vector<std::filesystem::path> copies;
  for (int number = 1; number <= kMaximumUnfinished; ++number) {
    auto copy = unfinishedCopy(store, number);
    const Presence presence = presenceOf(copy);
    if (presence == Presence::unknown) return unreadable(copy);
    // The copies are made in this order, and renamed in the opposite one.
    if (presence == Presence::absent) break;
    copies.push_back(std::move(copy));
  }
  return copies;
}

std::optional<Error> StoreRewrite::run(Patience patience, const Contents& contents) {
  sqlite3* opened = nullptr;
  sqlite3_open_v2(":memory:", &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY, nullptr);
  const Database fresh(opened);
  if (!makePreferencesTable(fresh)) return fail("recover", SQLITE_NOMEM);
  if (!openWithRightHeader(opened)) return fail("recover", SQLITE_PERM);
  sqlite3_busy_timeout(database_.get(), patience == Patience::none ? 0 : kLongestWaitMilliseconds);
  if (const int code = forgetLogIndex(); code != SQLITE_OK) return fail("recover", code);
  Backup backup(database_.get(), opened);
  // Takes the lock, and copies no page yet.
  if (const int code = backup.step(0); code != SQLITE_OK) return fail("recover", code);
  if (!keepDamaged())
    return fail("keep a copy of", errno == ENOSPC || errno == EDQUOT ? SQLITE_FULL : SQLITE_IOERR);
  const auto rows = contents();
  if (!rows) return rows.error();
  if (!fill(fresh, *rows)) return fail("recover", SQLITE_NOMEM);
  if (!cutLog()) return fail("recover", SQLITE_IOERR);
  const int code = backup.step(-1);
  if (const int end = backup.finish(); code != SQLITE_DONE || end != SQLITE_OK) {
    return fail("recover", code != SQLITE_DONE ? code : end);
  }
  takeLogOverAtClose(true);
  // While another process reads from the log, the contents stay there.
  sqlite3_wal_checkpoint_v2(database_.get(), nullptr, SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
  return std::nullopt;
}

bool StoreRewrite::openWithRightHeader(sqlite3* example) {
  auto file = readRawDatabaseFile(store_);
  if (!file) return false;
  formerSize_ = file->size();
  file->resize(std::min(kHeaderBytes, file->size()));
  if (!isHeaderOfStore(*file)) {
    formerStart_ = *file;
    const auto header = rightHeader(example, formerSize_);
    if (header.empty() || !overwriteStartOfFile(store_, header)) return false;
  }
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(
      store_.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_EXRESCODE,
      nullptr);
  database_.reset(opened);
  if (opened == nullptr) return false;
  takeLogOverAtClose(false);
  // Without this, SQLite refuses a file that is shorter than its header says.
  sqlite3_db_config(opened, SQLITE_DBCONFIG_WRITABLE_SCHEMA, 1, nullptr);
  return code == SQLITE_OK && sqlite3_db_readonly(opened, "main") == 0;
}

// When SQLite closes the store, it copies the log into the file and removes it, without the frames
// after the first damaged one. That is allowed only after the rewrite.
void StoreRewrite::takeLogOverAtClose(bool isAllowed) const {
  sqlite3_db_config(database_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, isAllowed ? 0 : 1, nullptr);
}

// Clears the checksums of the shared index, under the write lock, so that SQLite builds it again
// from the log.
int StoreRewrite::forgetLogIndex() {
  constexpr int regionBytes = 32768;
  constexpr std::size_t bothHeaders = 96;
  constexpr int writeLock = 0;
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_FILE_POINTER,
                       static_cast<void*>(&file));
  if (file == nullptr || file->pMethods == nullptr || file->pMethods->iVersion < 2)
    return SQLITE_CANTOPEN;
  const sqlite3_io_methods& methods = *file->pMethods;
  int code = SQLITE_BUSY;
  for (int i = 0; i < kLongestWaitMilliseconds / 5 && (code & 0xFF) == SQLITE_BUSY; ++i) {
    if (i > 0) sqlite3_sleep(5);
    // Keeps the last other process that closes the store from removing the index.
    code = methods.xLock(file, SQLITE_LOCK_SHARED);
    volatile void* region = nullptr;
    if (code == SQLITE_OK) code = methods.xShmMap(file, 0, regionBytes, 1, &region);
    if (code == SQLITE_OK)
      code = methods.xShmLock(file, writeLock, 1, SQLITE_SHM_LOCK | SQLITE_SHM_EXCLUSIVE);
    if (code != SQLITE_OK) continue;
    std::memset(const_cast<void*>(region), 0, bothHeaders);
    methods.xShmBarrier(file);
    code = methods.xShmLock(file, writeLock, 1, SQLITE_SHM_UNLOCK | SQLITE_SHM_EXCLUSIVE);
  }
  return code;
}

bool StoreRewrite::keepDamaged() const {
  auto file = readRawDatabaseFile(store_);
  if (!file) return false;
  if (!formerStart_.empty() || formerSize_ == 0) {
    // With the first bytes that the file had before they were corrected.
    std::copy(formerStart_.begin(), formerStart_.end(), file->begin());
    if (formerSize_ < kHeaderBytes) file->resize(formerSize_);
  }
  const auto log = logOf(store_);
  return log && keepCopy(store_, *file, *log);
}

bool StoreRewrite::cutLog() const {
  const std::string name = store_.string() + "-wal";
  auto bytes = logOf(store_);
  if (!bytes) return false;
  const std::size_t size = bytes->size();
  const std::size_t accepted = DatabaseLog(*std::move(bytes)).acceptedBytes();
  if (size <= accepted) return true;
  const FileDescriptor log(::open(name.c_str(), O_WRONLY | O_NOFOLLOW | O_CLOEXEC));
  return log && ::ftruncate(log.get(), static_cast<off_t>(accepted)) == 0;
}

Error StoreRewrite::fail(const char* what, int code) {
  const std::string begin = std::string("cannot ") + what + " " + store_.string();
  switch (code & 0xFF) {
    case SQLITE_FULL:
      problem_ = StorageProblem::diskFull;
      return {begin + " (the disk is full); make room"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      problem_ = StorageProblem::busy;
      return {begin + " (another program holds it); end that program"};
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
      problem_ = StorageProblem::notWritable;
      return {begin + " (no permission); allow writing to it and to its folder"};
    default:
      problem_ = StorageProblem::failing;
      return {begin + " (" + sqlite3_errstr(code) + "); check the disk"};
  }
}

}  // namespace foundation
