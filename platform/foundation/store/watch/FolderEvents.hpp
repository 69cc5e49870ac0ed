// SPDX-License-Identifier: MIT
#pragma once

#include "system/FileDescriptor.hpp"

#include <sys/types.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace foundation {

class WatchSystem;

// Reports what changed among the files of one store. Uses inotify. While the system refuses that,
// or the folder is missing, compares the identity, the size and the time of the files in each call.
// One thread at a time.
class FolderEvents {
public:
  enum class News {
    none,
    contents,  // a file was written to, or its time was set
    files,     // a file was made, removed, moved or replaced
  };

  FolderEvents(std::filesystem::path store, WatchSystem& system);

  // Readable when there are events; -1 while the caller has to compare by time.
  int descriptor() const { return notifier_.get(); }

  // Why the system does not watch the folder; empty when it does, or when the folder is missing.
  const std::string& refusal() const { return refusal_; }

  // What happened since the last call.
  News take();

private:
  struct File {
    dev_t device = 0;
    ino_t node = 0;
    off_t size = 0;
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    bool operator==(const File&) const = default;
  };
  using Files = std::array<File, 2>;  // the store and its log

  void watch();
  News takeEvents();
  News compareFiles();
  Files look() const;

  const std::filesystem::path store_;
  WatchSystem& system_;
  FileDescriptor notifier_;
  std::string refusal_;
  Files files_;
};

}  // namespace foundation
