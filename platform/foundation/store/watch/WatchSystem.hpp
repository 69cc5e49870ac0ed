#pragma once

#include "QEVSettings/preferences/StorageReport.hpp"
#include "foundation/Result.hpp"
#include "system/FileDescriptor.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <thread>

namespace foundation {

// What the watch of a store asks of the system. Tests override single operations to make them fail
// or wait. The operations on files run on the watch's thread.
class WatchSystem {
public:
  WatchSystem() = default;
  WatchSystem(const WatchSystem&) = delete;
  WatchSystem& operator=(const WatchSystem&) = delete;
  virtual ~WatchSystem() = default;

  // A thread in which every signal is blocked: signals belong to the threads of the host. Nothing
  // when the system has no thread left.
  virtual std::optional<std::thread> startThread(std::function<void()> work);

  // A descriptor that can be polled and written to; none when the system has no descriptor left.
  virtual FileDescriptor openWake();

  // An inotify descriptor for the folder, with the events that FolderEvents reads.
  virtual Result<FileDescriptor> watchFolder(const std::filesystem::path& folder);

  // Puts the store's log on disk; says whether that succeeded.
  virtual bool synchronizeLog(const std::filesystem::path& store);

  // How long a store is idle before `keepCopy`.
  virtual std::chrono::milliseconds pauseBeforeCopy() const { return std::chrono::seconds(15); }

  // Makes the good copy anew; the outcome of the recovery that this required, if it did.
  virtual std::optional<QEVSettings::StoreOpening> keepCopy(const std::filesystem::path& store);
};

}  // namespace foundation
