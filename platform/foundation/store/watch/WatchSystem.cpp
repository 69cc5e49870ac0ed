// SPDX-License-Identifier: MIT
#include "store/watch/WatchSystem.hpp"

#include "foundation/Thread.hpp"
#include "store/recovery/PreferencesRecovery.hpp"

#include <fcntl.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace foundation {

std::optional<std::thread> WatchSystem::startThread(std::function<void()> work) {
  return startThreadWithoutSignals(std::move(work));
}

FileDescriptor WatchSystem::openWake() {
  return FileDescriptor(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC));
}

Result<FileDescriptor> WatchSystem::watchFolder(const std::filesystem::path& folder) {
  constexpr std::uint32_t events = IN_ATTRIB | IN_MODIFY | IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM |
                                   IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
  FileDescriptor notifier(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
  if (!notifier || ::inotify_add_watch(notifier.get(), folder.c_str(), events) < 0) {
    return Error{std::generic_category().message(errno)};
  }
  return notifier;
}

// A missing log was copied into the store by SQLite, which writes it to the disk first.
bool WatchSystem::synchronizeLog(const std::filesystem::path& store) {
  const FileDescriptor log(
      ::open((store.string() + "-wal").c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  const bool isSynchronized = log ? ::fdatasync(log.get()) == 0 : errno == ENOENT;
  cueWatchers(store);
  return isSynchronized;
}

std::optional<QEVSettings::StoreOpening> WatchSystem::keepCopy(const std::filesystem::path& store) {
  return keepGoodCopy(store);
}

}  // namespace foundation
