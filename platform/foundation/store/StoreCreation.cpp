// SPDX-License-Identifier: MIT
#include "store/StoreCreation.hpp"

#include "store/PreferencesTable.hpp"
#include "system/FileDescriptor.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace foundation {

namespace {

// The bytes of an empty store in WAL mode.
std::string emptyStore() {
  sqlite3* opened = nullptr;
  const int code =
      sqlite3_open_v2(":memory:", &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_MEMORY, nullptr);
  const Database database(opened);
  if (code != SQLITE_OK || !makePreferencesTable(database)) return {};
  sqlite3_int64 size = 0;
  unsigned char* bytes = sqlite3_serialize(opened, "main", &size, 0);
  if (bytes == nullptr) return {};
  std::string store(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(size));
  sqlite3_free(bytes);
  store.at(18) = store.at(19) = 2;
  return store;
}

bool writeDurably(const std::string& path, const std::string& contents) {
  const FileDescriptor file(
      ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  return file && ::fchmod(file.get(), 0600) == 0 &&
         ::write(file.get(), contents.data(), contents.size()) ==
             static_cast<ssize_t>(contents.size()) &&
         ::fsync(file.get()) == 0;
}

// Gives the file its name unless another file has it; returns whether a file has it now.
bool takeName(const std::string& from, const std::string& to) {
  if (::link(from.c_str(), to.c_str()) == 0 || errno == EEXIST) return true;
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0 ||
      errno == EEXIST)
    return true;
  if (errno == ENOSPC || errno == EDQUOT || errno == EACCES || errno == EROFS) return false;
  // The file system supports neither. An empty file counts as an empty store.
  const FileDescriptor file(
      ::open(to.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (file) ::fchmod(file.get(), 0600);
  return file || errno == EEXIST;
}

bool isFolder(const std::filesystem::path& path) {
  struct stat found {};
  return ::stat(path.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

}  // namespace

std::string textOfError(int number) { return std::generic_category().message(number); }

void syncFolder(const std::filesystem::path& folder) {
  if (const FileDescriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
      opened) {
    ::fsync(opened.get());
  }
}

Outcome makeFolders(const std::filesystem::path& folder) {
  if (folder.empty() || isFolder(folder)) return done();
  if (auto outcome = makeFolders(folder.parent_path()); !outcome) return outcome;
  if (::mkdir(folder.c_str(), 0700) == 0) {
    ::chmod(folder.c_str(), 0700);
    syncFolder(folder.parent_path());
  } else if (errno != EEXIST) {
    return Error{"cannot create the folder " + folder.string() + " (" + textOfError(errno) +
                 "); create it, or choose a file elsewhere"};
  }
  if (!isFolder(folder)) {
    return Error{folder.string() + " is no folder; choose a file elsewhere"};
  }
  return done();
}

Outcome makeStore(const std::filesystem::path& store) {
  const std::string temporary = store.string() + ".new";
  const std::string contents = emptyStore();
  removeUnsharedStore(temporary);
  const bool isMade =
      !contents.empty() && writeDurably(temporary, contents) && takeName(temporary, store.string());
  const int problem = errno;
  removeUnsharedStore(temporary);
  if (!isMade) {
    return Error{"cannot create " + store.string() + " (" + textOfError(problem) +
                 "); allow writing to its folder, or choose a file elsewhere"};
  }
  syncFolder(store.parent_path());
  return done();
}

void removeUnsharedStore(const std::filesystem::path& path) {
  for (const char* ending : {"", "-wal", "-shm", "-journal"})
    ::unlink((path.string() + ending).c_str());
}

}  // namespace foundation
