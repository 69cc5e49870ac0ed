// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

struct sqlite3;

namespace foundation {

// The stamp of the last commit to a store. It is in SQLite's index of the log (NAME-shm), memory
// that all processes share. If two looks find the same stamp, there was no commit between them. A
// look costs one load.
//
// If somebody truncates the index (`: > NAME-shm`), its pages are gone, and an access to the stamp
// raises SIGBUS. The size of the index is therefore checked before each transaction, and by the
// watching thread at every change of the folder. The thread then withdraws the stamp, so that reads
// no longer access it.
//
// Owner's thread, except for `newsOf`.
class CommitStamp {
public:
  enum class News {
    unknown,  // no file of this process has a stamp of this store
    none,     // the owner has seen the last commit
    some,
  };

  CommitStamp() = default;
  CommitStamp(const CommitStamp&) = delete;
  CommitStamp& operator=(const CommitStamp&) = delete;
  ~CommitStamp();

  // `stamp` points into SQLite's memory, which must stay mapped until `detach`.
  void attach(const std::filesystem::path& store, std::uint64_t* stamp);
  void detach();

  bool isAttached() const { return isAttached_; }
  std::uint64_t value() const {
    return std::atomic_ref(*stamp_.load(std::memory_order_acquire)).load(std::memory_order_acquire);
  }
  bool isNew() const { return value() != seen_.load(std::memory_order_relaxed); }
  void markSeen(std::uint64_t stamp) { seen_.store(stamp, std::memory_order_relaxed); }

  // The number of commits, and the number of frames in the log, from the index. 0 when the index
  // was truncated.
  std::uint32_t commitCount() const;
  std::uint32_t frameCount() const;

  // Whether the index was truncated: it is shorter than the part that is mapped.
  bool isIndexCut() const;

  // Whether this process still maps an index that was truncated. SQLite would give the same mapping
  // to a new connection. Any thread.
  static bool isCutIndexInUse(const std::filesystem::path& store);

  // Whether a commit to the store is new to this process. Any thread.
  static News newsOf(const std::filesystem::path& store);

private:
  void withdraw();
  std::uint32_t wordOfIndex(std::ptrdiff_t word) const;

  std::filesystem::path store_;
  std::string index_;
  bool isAttached_ = false;
  std::uint64_t none_ = 0;  // takes the place of a stamp that may not be touched
  std::atomic<std::uint64_t*> stamp_ = &none_;
  std::atomic<std::uint64_t> seen_ = 0;
};

// Keeps SQLite from accessing a truncated index when it closes the database.
void spareCutIndex(sqlite3* database);

}  // namespace foundation
