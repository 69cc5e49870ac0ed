#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

struct sqlite3;

namespace foundation {

// The stamp of the last commit to a store's file, which stands in SQLite's index of the log
// (NAME-shm), memory that all processes share. Two looks that find the same stamp have no commit
// between them. Looking costs one load.
//
// Whoever cuts the index off (`: > NAME-shm`) takes the pages away on which the stamp stands:
// touching them raises SIGBUS. The size of the index is therefore checked before each transaction,
// and by the watching thread at every change of the folder, which then withdraws the stamp from the
// reads.
//
// The owner's thread, except for `newsOf`.
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

  // The stamp's place in SQLite's memory, which must stay mapped until `detach`.
  void attach(const std::filesystem::path& store, std::uint64_t* stamp);
  void detach();

  bool isAttached() const { return isAttached_; }
  std::uint64_t value() const {
    return std::atomic_ref(*stamp_.load(std::memory_order_acquire)).load(std::memory_order_acquire);
  }
  bool isNew() const { return value() != seen_.load(std::memory_order_relaxed); }
  void markSeen(std::uint64_t stamp) { seen_.store(stamp, std::memory_order_relaxed); }

  // The number of commits, and the number of the log's frames, which the index holds as well. 0
  // when it was cut off.
  std::uint32_t commitCount() const;
  std::uint32_t frameCount() const;

  // Whether the index is shorter than what is mapped of it.
  bool isIndexCut() const;

  // Whether this process still maps an index that was cut off. SQLite would hand that to whoever
  // opens the store. Any thread.
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

// Keeps SQLite from touching a cut index when it closes the database.
void spareCutIndex(sqlite3* database);

}  // namespace foundation
