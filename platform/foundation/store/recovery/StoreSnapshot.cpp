// SPDX-License-Identifier: MIT
#include "store/recovery/StoreSnapshot.hpp"

#include "store/recovery/DatabaseLog.hpp"

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace foundation {

namespace {

Result<DatabaseLog> logOf(const std::filesystem::path& path) {
  auto bytes = readRawDatabaseFileIfThere(path.string() + "-wal");
  if (!bytes) return bytes.error();
  return DatabaseLog(*std::move(bytes));
}

void takeOver(const DatabaseLog& log, FileBytes& file) {
  for (const LogFrame& frame : log.accepted()) {
    const std::size_t start = (std::size_t{frame.page} - 1) * kDatabasePageBytes;
    if (file.size() < start + kDatabasePageBytes) file.resize(start + kDatabasePageBytes);
    const auto page = log.page(frame);
    std::copy(page.begin(), page.end(), file.begin() + static_cast<std::ptrdiff_t>(start));
  }
}

}  // namespace

Result<DatabaseSnapshot> snapshotOfDatabase(const std::filesystem::path& path) {
  constexpr int attempts = 10;
  constexpr useconds_t pauseMicroseconds = 2000;
  constexpr std::size_t writeVersion = 18;
  constexpr std::size_t readVersion = 19;
  for (int i = 1;; ++i) {
    const auto before = logOf(path);
    auto file = readRawDatabaseFile(path);
    if (!file) return unreadable(path);
    const auto after = logOf(path);
    if (!before || !after) return before ? after.error() : before.error();
    // Pages that were copied into the file meanwhile are still in the log, unless the log was
    // restarted. A log that is being written looks damaged for a moment.
    const bool isSettled = after->continues(*before) && !after->hasLostTransactions();
    if (!isSettled && i < attempts) {
      ::usleep(pauseMicroseconds);
      continue;
    }
    takeOver(*after, *file);
    // A database in memory has no log.
    if (file->size() > readVersion && (*file)[writeVersion] == 2)
      (*file)[writeVersion] = (*file)[readVersion] = 1;
    return DatabaseSnapshot{.bytes = *std::move(file),
                            .hasLostTransactions = after->hasLostTransactions()};
  }
}

}  // namespace foundation
