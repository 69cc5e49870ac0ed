// SPDX-License-Identifier: MIT
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

// The system calls of the watch. Tests override single operations to make them fail or wait. The
// operations on files run on the watch's thread.
class WatchSystem {
public:
  WatchSystem() = default;
  WatchSystem(const WatchSystem&) = delete;
  WatchSystem& operator=(const WatchSystem&) = delete;
  virtual ~WatchSystem() = default;

  // Starts a thread in which every signal is blocked, because signals belong to the host's threads.
  // Nothing when the system has no thread left.
  virtual std::optional<std::thread> startThread(std::function<void()> work);

  // A descriptor to poll and write to; none when the system has none left.
  virtual FileDescriptor openWake();

  // An inotify descriptor for the folder, with the events that FolderEvents reads.
  virtual Result<FileDescriptor> watchFolder(const std::filesystem::path& folder);

  // Writes the store's log to the disk; returns whether that succeeded.
  virtual bool synchronizeLog(const std::filesystem::path& store);

  // How long a store must be idle before `keepCopy`.
  virtual std::chrono::milliseconds pauseBeforeCopy() const { return std::chrono::seconds(15); }

  // Makes the good copy anew; the outcome of the recovery that this required, if it did.
  virtual std::optional<QEVSettings::StoreOpening> keepCopy(const std::filesystem::path& store);
};

}  // namespace foundation
