#include "PreferencesFile.hpp"

#include "foundation/PreferenceCoding.hpp"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cmath>
#include <limits>
#include <system_error>
#include <utility>

namespace foundation {

using QEVSettings::PreferenceValue;

namespace {

constexpr int kApplicationId = 0x5A565052;  // "ZVPR" at a fixed place of the file
constexpr int kFormatVersion = 1;
constexpr int kBusyMilliseconds = 2000;
// SQLite holds a row of a thousand million bytes, of which its own bookkeeping takes a few.
constexpr std::uint64_t kMaximumRowBytes = 999'000'000;

std::string reason(int error) { return std::generic_category().message(error); }

// A folder of ours is nobody else's, whatever the umask.
Outcome makeFolders(const std::filesystem::path& folder) {
  std::error_code error;
  if (folder.empty() || std::filesystem::is_directory(folder, error)) return done();
  if (auto outcome = makeFolders(folder.parent_path()); !outcome) return outcome;
  if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
    return Error{"cannot create the folder " + folder.string() + " (" + reason(errno) +
                 "); create it, or choose a file elsewhere"};
  }
  if (!std::filesystem::is_directory(folder, error)) {
    return Error{folder.string() + " is no folder; choose a file elsewhere"};
  }
  return done();
}

// Must run before SQLite opens the file: closing any descriptor of it would drop SQLite's locks.
Outcome makeFile(const std::filesystem::path& path) {
  const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (descriptor >= 0) {
    ::fchmod(descriptor, 0600);
    ::close(descriptor);
    return done();
  }
  const int whyNot = errno;
  struct stat found {};
  if (::stat(path.c_str(), &found) != 0) {
    return Error{"cannot create " + path.string() + " (" + reason(whyNot) +
                 "); allow writing to its folder, or choose a file elsewhere"};
  }
  if (S_ISDIR(found.st_mode)) return Error{path.string() + " is a folder; choose a file"};
  if (!S_ISREG(found.st_mode)) return Error{path.string() + " is no regular file; choose another"};
  if (found.st_uid == ::geteuid() && (found.st_mode & 077) != 0) ::chmod(path.c_str(), 0600);
  return done();
}

void bindBytes(sqlite3_stmt* statement, int column, const void* bytes, std::size_t size) {
  // A null pointer would bind NULL, and an empty vector may have one.
  if (size == 0) {
    sqlite3_bind_zeroblob(statement, column, 0);
  } else {
    sqlite3_bind_blob64(statement, column, bytes, size, SQLITE_STATIC);
  }
}

std::span<const std::uint8_t> columnBytes(sqlite3_stmt* statement, int column) {
  const auto* bytes = static_cast<const std::uint8_t*>(sqlite3_column_blob(statement, column));
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

std::string columnText(sqlite3_stmt* statement, int column) {
  const auto bytes = columnBytes(statement, column);
  return {bytes.begin(), bytes.end()};
}

double columnReal(sqlite3_stmt* statement, int column) {
  return sqlite3_column_type(statement, column) == SQLITE_NULL ? std::numeric_limits<double>::quiet_NaN()
                                                               : sqlite3_column_double(statement, column);
}

// The value of a row; nothing when the key was removed, or when the row holds what no release of ours wrote.
std::optional<PreferenceValue> columnValue(sqlite3_stmt* statement, int typeColumn, int column) {
  if (sqlite3_column_type(statement, typeColumn) != SQLITE_INTEGER) return std::nullopt;
  switch (static_cast<PreferenceValue::Type>(sqlite3_column_int(statement, typeColumn))) {
    case PreferenceValue::Type::integer: return std::int64_t{sqlite3_column_int64(statement, column)};
    case PreferenceValue::Type::boolean: return sqlite3_column_int64(statement, column) != 0;
    case PreferenceValue::Type::real: return columnReal(statement, column);
    case PreferenceValue::Type::string: return columnText(statement, column);
    case PreferenceValue::Type::data: {
      const auto bytes = columnBytes(statement, column);
      return PreferenceValue::Bytes(bytes.begin(), bytes.end());
    }
    case PreferenceValue::Type::date:
      return PreferenceValue::Date(PreferenceValue::Date::duration(columnReal(statement, column)));
    case PreferenceValue::Type::array:
    case PreferenceValue::Type::dictionary: return decodedPreference(columnBytes(statement, column));
  }
  return std::nullopt;
}

}  // namespace

void PreferencesFile::Close::operator()(sqlite3* database) const { sqlite3_close_v2(database); }
void PreferencesFile::Close::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Result<std::unique_ptr<PreferencesFile>> PreferencesFile::open(const std::filesystem::path& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(path, error);
  if (error || !absolute.has_filename()) return Error{"'" + path.string() + "' names no file; choose one"};
  if (auto outcome = makeFolders(absolute.parent_path()); !outcome) return outcome.error();
  if (auto outcome = makeFile(absolute); !outcome) return outcome.error();
  std::unique_ptr<PreferencesFile> file(new PreferencesFile(absolute));
  if (auto outcome = file->connect(); !outcome) return outcome.error();
  return file;
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

Outcome PreferencesFile::connect() {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path_.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) return failure("open");
  sqlite3_busy_timeout(database_.get(), kBusyMilliseconds);
  readOnly_ = sqlite3_db_readonly(database_.get(), "main") == 1;
  if (readOnly_ && !number("PRAGMA schema_version")) return connectUnchanging();
  if (auto outcome = identify(); !outcome) return outcome;
  return prepare();
}

// Where not even SQLite's companion files can be made, nobody can be writing either.
Outcome PreferencesFile::connectUnchanging() {
  constexpr std::string_view plain = "-._~/ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : path_.string()) {
    if (plain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      uri += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  uri += "?immutable=1";
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(uri.c_str(), &opened, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) return failure("open");
  unchanging_ = true;
  if (auto outcome = identify(); !outcome) return outcome;
  return prepare();
}

// Changing to the log needs the file for itself, and SQLite does not always wait for that.
Outcome PreferencesFile::useWriteAheadLog() {
  for (int waited = 0; !run("PRAGMA journal_mode = WAL"); waited += 10) {
    if ((sqlite3_errcode(database_.get()) & 0xFF) != SQLITE_BUSY || waited > kBusyMilliseconds) return failure("open");
    sqlite3_sleep(10);
  }
  return run("PRAGMA synchronous = FULL") && run("PRAGMA journal_size_limit = 4194304") ? done()
                                                                                        : Outcome(failure("open"));
}

// Says whether the file is a store of ours, and makes one of an empty file.
Outcome PreferencesFile::identify() {
  run("PRAGMA trusted_schema = OFF");
  run("PRAGMA cell_size_check = ON");
  const auto objects = number("SELECT count(*) FROM sqlite_schema");
  if (!objects) return failure("read");
  const bool isOurs = number("PRAGMA application_id") == kApplicationId;
  if (*objects > 0 && !isOurs) {
    return Error{path_.string() + " is a database of another program; choose another file"};
  }
  if (isOurs && number("PRAGMA user_version").value_or(0) > kFormatVersion) {
    return Error{path_.string() + " was written by a newer release; update this program, or choose another file"};
  }
  if (readOnly_) return done();
  if (auto outcome = useWriteAheadLog(); !outcome) return outcome;
  if (*objects > 0) return done();

  const std::string mark = "PRAGMA application_id = " + std::to_string(kApplicationId) +
                           "; PRAGMA user_version = " + std::to_string(kFormatVersion);
  const bool made = run("BEGIN IMMEDIATE") &&
                    run("CREATE TABLE IF NOT EXISTS preferences (change INTEGER PRIMARY KEY, "
                        "key BLOB NOT NULL UNIQUE, type INTEGER, value ANY) STRICT") &&
                    run(mark.c_str()) && run("COMMIT");
  if (made) return done();
  const Error error = failure("set up");
  run("ROLLBACK");
  return error;
}

Outcome PreferencesFile::prepare() {
  const auto prepared = [this](const char* sql, Statement& into) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    into.reset(statement);
    return code == SQLITE_OK && statement != nullptr;
  };
  if (readOnly_ && number("SELECT count(*) FROM sqlite_schema") == 0) {
    return Error{path_.string() + " is empty and cannot be written; allow writing to it, or choose another file"};
  }
  if (!prepared("SELECT change, key, type, value FROM preferences WHERE change > ?1 ORDER BY change", select_) ||
      !prepared("REPLACE INTO preferences (key, type, value) VALUES (?1, ?2, ?3)", insert_)) {
    return failure("read");
  }
  findStamp();
  return done();
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
  sqlite3_stmt* journal = nullptr;
  sqlite3_prepare_v2(database_.get(), "PRAGMA journal_mode", -1, &journal, nullptr);
  const Statement owner(journal);
  if (sqlite3_step(journal) != SQLITE_ROW || columnText(journal, 0) != "wal") return;
  file->pMethods->xShmMap(file, 0, regionBytes, 0, &region);
  if (region != nullptr) {
    stamp_ = reinterpret_cast<std::uint64_t*>(const_cast<char*>(static_cast<volatile char*>(region)) + stampOffset);
  }
}

bool PreferencesFile::mayHaveChanged() const {
  if (unchanging_) return false;
  return stamp_ == nullptr || std::atomic_ref(*stamp_).load(std::memory_order_acquire) != seenStamp_;
}

Outcome PreferencesFile::readChanges(const Receiver& receive) {
  // Taken first: what is committed while this reads is looked for again.
  const std::uint64_t stamp = stamp_ != nullptr ? std::atomic_ref(*stamp_).load(std::memory_order_acquire) : 0;
  sqlite3_bind_int64(select_.get(), 1, lastChange_);
  int code = sqlite3_step(select_.get());
  for (; code == SQLITE_ROW; code = sqlite3_step(select_.get())) {
    lastChange_ = sqlite3_column_int64(select_.get(), 0);
    receive({.key = columnText(select_.get(), 1), .value = columnValue(select_.get(), 2, 3)});
  }
  sqlite3_reset(select_.get());
  if (code != SQLITE_DONE) return failure("read");
  seenStamp_ = stamp;
  return done();
}

Outcome PreferencesFile::write(std::span<const PreferenceChange> changes, const Receiver& receive) {
  if (readOnly_) {
    return Error{path_.string() + " cannot be written; allow writing to it and to its folder, or choose another file"};
  }
  if (!run("BEGIN IMMEDIATE")) return failure("write");
  auto outcome = readChanges(receive);
  std::int64_t last = lastChange_;
  for (const PreferenceChange& change : changes) {
    if (!outcome) break;
    if (!insert(change)) outcome = failure("write");
    last = sqlite3_last_insert_rowid(database_.get());
  }
  if (outcome && !run("COMMIT")) outcome = failure("write");
  if (!outcome) {
    run("ROLLBACK");
    return outcome;
  }
  lastChange_ = last;
  // SQLite writes its log before the commit counts; this tells whoever watches the folder that it does.
  ::utimensat(AT_FDCWD, path_.c_str(), nullptr, 0);
  return done();
}

bool PreferencesFile::insert(const PreferenceChange& change) {
  sqlite3_stmt* statement = insert_.get();
  std::vector<std::uint8_t> encoded;
  sqlite3_clear_bindings(statement);
  bindBytes(statement, 1, change.key.data(), change.key.size());
  if (change.value) {
    const PreferenceValue& value = *change.value;
    sqlite3_bind_int(statement, 2, static_cast<int>(value.type()));
    switch (value.type()) {
      case PreferenceValue::Type::integer: sqlite3_bind_int64(statement, 3, *value.asInteger()); break;
      case PreferenceValue::Type::boolean: sqlite3_bind_int(statement, 3, *value.asBoolean() ? 1 : 0); break;
      case PreferenceValue::Type::real: sqlite3_bind_double(statement, 3, *value.asReal()); break;
      case PreferenceValue::Type::string:
        sqlite3_bind_text64(statement, 3, value.asString()->data(), value.asString()->size(), SQLITE_STATIC,
                            SQLITE_UTF8);
        break;
      case PreferenceValue::Type::data: bindBytes(statement, 3, value.asData()->data(), value.asData()->size()); break;
      case PreferenceValue::Type::date:
        sqlite3_bind_double(statement, 3, value.asDate()->time_since_epoch().count());
        break;
      case PreferenceValue::Type::array:
      case PreferenceValue::Type::dictionary:
        encoded = encodedPreference(value).value_or(std::vector<std::uint8_t>{});
        bindBytes(statement, 3, encoded.data(), encoded.size());
        break;
    }
  }
  const int code = sqlite3_step(statement);
  sqlite3_reset(statement);
  sqlite3_clear_bindings(statement);
  return code == SQLITE_DONE;
}

std::optional<std::int64_t> PreferencesFile::number(const char* query) {
  sqlite3_stmt* prepared = nullptr;
  sqlite3_prepare_v2(database_.get(), query, -1, &prepared, nullptr);
  const Statement statement(prepared);
  if (!statement || sqlite3_step(prepared) != SQLITE_ROW) return std::nullopt;
  return sqlite3_column_int64(prepared, 0);
}

bool PreferencesFile::run(const char* statement) {
  return sqlite3_exec(database_.get(), statement, nullptr, nullptr, nullptr) == SQLITE_OK;
}

Error PreferencesFile::failure(const char* what) const {
  const std::string begin = std::string("cannot ") + what + " " + path_.string() + " (";
  switch (sqlite3_errcode(database_.get()) & 0xFF) {
    case SQLITE_NOTADB: return {path_.string() + " is no preferences store; move it away, or choose another file"};
    case SQLITE_CORRUPT: return {path_.string() + " is damaged; move it away, or choose another file"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return {begin + "another program holds it); end that program, then try again"};
    case SQLITE_FULL: return {begin + "the disk is full); make room, then try again"};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_READONLY:
      return {begin + "no permission); allow access to it and to its folder, or choose another file"};
    default:
      return {begin + sqlite3_errmsg(database_.get()) + "); check the disk and the folder, or choose another file"};
  }
}

}  // namespace foundation
