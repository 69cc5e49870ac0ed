// SPDX-License-Identifier: MIT
#include "store/recovery/RepairLock.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace foundation {

namespace {

FileDescriptor openLockFile(const std::string& name) {
  constexpr mode_t mode = 0600;
  const auto attempt = [&] {
    return FileDescriptor(::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, mode));
  };
  auto file = attempt();
  struct stat found {};
  if (!file && errno == EACCES && ::lstat(name.c_str(), &found) == 0 && S_ISREG(found.st_mode)) {
    // It was made under a umask that takes the owner's rights as well.
    ::chmod(name.c_str(), mode);
    file = attempt();
  }
  if (file && ::fstat(file.get(), &found) == 0 && (found.st_mode & 0777) != mode)
    ::fchmod(file.get(), mode);
  return file;
}

}  // namespace

RepairLock::RepairLock(const std::filesystem::path& store, Patience patience)
    : file_(openLockFile(store.string() + ".lock")) {
  const int attempts = patience == Patience::none ? 1 : 100;
  for (int i = 0; file_ && i < attempts && !isHeld_; ++i) {
    if (i > 0) ::usleep(10'000);
    isHeld_ = ::flock(file_.get(), LOCK_EX | LOCK_NB) == 0;
  }
}

}  // namespace foundation
