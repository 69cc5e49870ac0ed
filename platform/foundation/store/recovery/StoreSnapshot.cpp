#include "store/recovery/StoreSnapshot.hpp"

#include "store/recovery/DatabaseLog.hpp"

#include <algorithm>
#include <utility>

namespace foundation {

namespace {

DatabaseLog logOf(const std::filesystem::path& path) {
  return DatabaseLog(readRawDatabaseFile(path.string() + "-wal").value_or(FileBytes()));
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

std::optional<FileBytes> snapshotOfDatabase(const std::filesystem::path& path) {
  constexpr int attempts = 10;
  constexpr std::size_t writeVersion = 18;
  constexpr std::size_t readVersion = 19;
  for (int i = 0; i < attempts; ++i) {
    const auto before = logOf(path);
    auto file = readRawDatabaseFile(path);
    if (!file) return std::nullopt;
    const auto after = logOf(path);
    // Pages that were taken over into the file meanwhile are in the log still, unless it was begun
    // anew.
    if (!after.continues(before) && i + 1 < attempts) continue;
    takeOver(after, *file);
    // In memory there is no log.
    if (file->size() > readVersion && (*file)[writeVersion] == 2)
      (*file)[writeVersion] = (*file)[readVersion] = 1;
    return file;
  }
  return std::nullopt;
}

}  // namespace foundation
