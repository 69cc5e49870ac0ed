// SPDX-License-Identifier: MIT
#include "store/watch/CommitStamp.hpp"

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace foundation {

namespace {

// The size of the parts in which SQLite maps the index.
constexpr off_t kMappedBytes = 32768;

struct Registry {
  std::mutex mutex;
  std::vector<CommitStamp*> stamps;
};

// Never destroyed, because stores may be closed while the process ends.
Registry& registry() {
  static auto* const shared = std::make_unique<Registry>().release();
  return *shared;
}

std::string indexOf(const std::filesystem::path& store) { return store.string() + "-shm"; }

bool isCut(const std::string& index) {
  struct stat found {};
  return ::lstat(index.c_str(), &found) == 0 && found.st_size < kMappedBytes;
}

}  // namespace

CommitStamp::~CommitStamp() { detach(); }

void CommitStamp::attach(const std::filesystem::path& store, std::uint64_t* stamp) {
  const std::scoped_lock lock(registry().mutex);
  if (!isAttached_) registry().stamps.push_back(this);
  store_ = store;
  index_ = indexOf(store);
  stamp_ = stamp;
  isAttached_ = true;
}

void CommitStamp::detach() {
  if (!isAttached_) return;
  const std::scoped_lock lock(registry().mutex);
  std::erase(registry().stamps, this);
  isAttached_ = false;
  stamp_ = &none_;
}

std::uint32_t CommitStamp::commitCount() const { return wordOfIndex(2); }

std::uint32_t CommitStamp::frameCount() const { return wordOfIndex(4); }

// A word of the index's header. The stamp is the eleventh and the twelfth word.
std::uint32_t CommitStamp::wordOfIndex(std::ptrdiff_t word) const {
  constexpr std::ptrdiff_t stampWord = 10;
  std::uint64_t* const stamp = stamp_;
  if (stamp == &none_) return 0;
  return std::atomic_ref(*(reinterpret_cast<std::uint32_t*>(stamp) - stampWord + word))
      .load(std::memory_order_acquire);
}

bool CommitStamp::isIndexCut() const { return isAttached_ && (stamp_ == &none_ || isCut(index_)); }

bool CommitStamp::isCutIndexInUse(const std::filesystem::path& store) {
  const std::scoped_lock lock(registry().mutex);
  const auto& stamps = registry().stamps;
  return std::any_of(stamps.begin(), stamps.end(),
                     [&](const CommitStamp* stamp) { return stamp->store_ == store; }) &&
         isCut(indexOf(store));
}

CommitStamp::News CommitStamp::newsOf(const std::filesystem::path& store) {
  const std::scoped_lock lock(registry().mutex);
  const bool isIndexCut = isCut(indexOf(store));
  auto news = News::unknown;
  for (CommitStamp* stamp : registry().stamps) {
    if (stamp->store_ != store) continue;
    if (isIndexCut) stamp->withdraw();
    news = std::max(news, isIndexCut || stamp->isNew() ? News::some : News::none);
  }
  return news;
}

// From now on every read finds a new stamp, and so reaches `readChanges`, which checks the index.
void CommitStamp::withdraw() {
  if (stamp_ == &none_) return;
  std::atomic_ref(none_).store(~seen_.load());
  stamp_ = &none_;
}

void spareCutIndex(sqlite3* database) {
  const char* const file = database != nullptr ? sqlite3_db_filename(database, "main") : nullptr;
  if (file != nullptr && isCut(indexOf(file))) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }
}

}  // namespace foundation
