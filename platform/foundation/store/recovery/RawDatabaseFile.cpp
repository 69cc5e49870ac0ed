// SPDX-License-Identifier: MIT
#include "store/recovery/RawDatabaseFile.hpp"

#include "store/SQLiteFileUse.hpp"
#include "system/FileDescriptor.hpp"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>

namespace foundation {

namespace {

class RawFile {
public:
  RawFile(const std::filesystem::path& path, int access)
      : name_(sqlite3_create_filename(path.c_str(), (path.string() + "-journal").c_str(),
                                      (path.string() + "-wal").c_str(), 0, nullptr)) {
    sqlite3_vfs* files = sqlite3_vfs_find(nullptr);
    struct stat found {};
    if (name_ == nullptr || files == nullptr || ::lstat(path.c_str(), &found) != 0) return;
    if (!S_ISREG(found.st_mode) || found.st_uid != ::geteuid()) return;
    memory_.resize(static_cast<std::size_t>(files->szOsFile) / sizeof(std::max_align_t) + 1);
    int granted = 0;
    const int flags = access | SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_NOFOLLOW;
    isOpen_ = files->xOpen(files, name_, file(), flags, &granted) == SQLITE_OK;
    isWritable_ = (granted & SQLITE_OPEN_READWRITE) != 0;
  }
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  ~RawFile() {
    if (isOpen_) methods().xClose(file());
    sqlite3_free_filename(name_);
  }

  bool isOpen() const { return isOpen_; }
  std::optional<std::size_t> size() {
    sqlite3_int64 bytes = 0;
    if (methods().xFileSize(file(), &bytes) != SQLITE_OK || bytes < 0) return std::nullopt;
    return static_cast<std::size_t>(bytes);
  }
  bool read(std::size_t offset, std::span<std::uint8_t> into) {
    const int code = methods().xRead(file(), into.data(), static_cast<int>(into.size()),
                                     static_cast<sqlite3_int64>(offset));
    return code == SQLITE_OK || code == SQLITE_IOERR_SHORT_READ;
  }
  bool overwriteStart(std::span<const std::uint8_t> bytes) {
    return isWritable_ &&
           methods().xWrite(file(), bytes.data(), static_cast<int>(bytes.size()), 0) == SQLITE_OK &&
           methods().xSync(file(), SQLITE_SYNC_NORMAL) == SQLITE_OK;
  }

private:
  sqlite3_file* file() { return reinterpret_cast<sqlite3_file*>(memory_.data()); }
  const sqlite3_io_methods& methods() { return *file()->pMethods; }

  sqlite3_filename name_;
  std::vector<std::max_align_t> memory_;
  bool isOpen_ = false;
  bool isWritable_ = false;
};

// Takes a third of the system calls that SQLite's file layer takes for the first bytes.
std::optional<FileBytes> readPlainly(const std::filesystem::path& path, std::size_t most) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat found {};
  if (!file || ::fstat(file.get(), &found) != 0 || !S_ISREG(found.st_mode) ||
      found.st_uid != ::geteuid()) {
    return std::nullopt;
  }
  FileBytes bytes(std::min(static_cast<std::size_t>(found.st_size), most));
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    const ssize_t count = ::pread(file.get(), bytes.data() + filled, bytes.size() - filled,
                                  static_cast<off_t>(filled));
    if (count < 0) return std::nullopt;
    if (count == 0) break;  // The file was cut meanwhile; the rest reads as zeros.
    filled += static_cast<std::size_t>(count);
  }
  return bytes;
}

}  // namespace

std::optional<FileBytes> readRawDatabaseFile(const std::filesystem::path& path, std::size_t most) {
  constexpr std::size_t pieceBytes = std::size_t{1} << 24;
  std::optional<FileBytes> plain;
  if (readWhileUnused([&] { plain = readPlainly(path, most); }) && plain) return plain;
  RawFile file(path, SQLITE_OPEN_READONLY);
  if (!file.isOpen()) return std::nullopt;
  const auto size = file.size();
  if (!size) return std::nullopt;
  FileBytes bytes(std::min(*size, most));
  for (std::size_t start = 0; start < bytes.size(); start += pieceBytes) {
    const std::size_t count = std::min(pieceBytes, bytes.size() - start);
    if (!file.read(start, std::span(bytes).subspan(start, count))) return std::nullopt;
  }
  return bytes;
}

Result<FileBytes> readRawDatabaseFileIfThere(const std::filesystem::path& path, std::size_t most) {
  if (auto bytes = readRawDatabaseFile(path, most)) return *std::move(bytes);
  struct stat found {};
  const bool isFound = ::lstat(path.c_str(), &found) == 0;
  if (!isFound && errno == ENOENT) return FileBytes();
  if (isFound && (!S_ISREG(found.st_mode) || found.st_uid != ::geteuid())) return FileBytes();
  return unreadable(path);
}

Error unreadable(const std::filesystem::path& path) {
  return {"cannot read " + path.string() + "; check the disk and the permissions of that file"};
}

bool overwriteStartOfFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes) {
  RawFile file(path, SQLITE_OPEN_READWRITE);
  return file.isOpen() && file.overwriteStart(bytes);
}

}  // namespace foundation
