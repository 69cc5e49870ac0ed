// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <vector>

namespace foundation {

// Calls back on the main thread, from the main queue, after something changed in one of several
// folders. A folder may be missing, appear, and be replaced. Changes that follow each other are
// told together. One thread waits for the system's events; where the system has no watch or thread
// left, the main queue looks twice a second. Main thread.
//
//     FolderWatch watch({"/etc/xdg/analyzer/locks.d"}, [] { readAgain(); });
class FolderWatch {
public:
  // A call may come although nothing changed in the folders themselves.
  FolderWatch(std::vector<std::filesystem::path> folders, std::function<void()> changed);
  // The callback is not called any more when this returns.
  ~FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

private:
  class Waiting;
  std::unique_ptr<Waiting> waiting_;
};

}  // namespace foundation
