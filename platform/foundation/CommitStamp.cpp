#include "CommitStamp.hpp"

#include <sqlite3.h>
#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace foundation {

namespace {

// SQLite maps the index in parts of this size.
constexpr off_t kMappedBytes = 32768;

struct Registry {
  std::mutex mutex;
  std::vector<CommitStamp*> stamps;
};

// Never destroyed: stores may be closed while the process ends.
Registry& registry() {
  static auto* const shared = std::make_unique<Registry>().release();
  return *shared;
}

bool isCut(const std::filesystem::path& store) {
  struct stat found {};
  return ::lstat((store.string() + "-shm").c_str(), &found) == 0 && found.st_size < kMappedBytes;
}

}  // namespace

CommitStamp::~CommitStamp() { detach(); }

void CommitStamp::attach(const std::filesystem::path& store, std::uint64_t* stamp) {
  const std::scoped_lock lock(registry().mutex);
  if (!isAttached_) registry().stamps.push_back(this);
  store_ = store;
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

std::uint32_t CommitStamp::commitCount() const {
  constexpr int wordsBefore = 8;
  std::uint64_t* const stamp = stamp_;
  if (stamp == &none_) return 0;
  return std::atomic_ref(*(reinterpret_cast<std::uint32_t*>(stamp) - wordsBefore)).load(std::memory_order_acquire);
}

bool CommitStamp::isIndexCut() const { return isAttached_ && (stamp_ == &none_ || isCut(store_)); }

bool CommitStamp::isCutIndexInUse(const std::filesystem::path& store) {
  const std::scoped_lock lock(registry().mutex);
  const auto& stamps = registry().stamps;
  return isCut(store) &&
         std::any_of(stamps.begin(), stamps.end(), [&](const CommitStamp* stamp) { return stamp->store_ == store; });
}

CommitStamp::News CommitStamp::newsOf(const std::filesystem::path& store) {
  const std::scoped_lock lock(registry().mutex);
  const bool isIndexCut = isCut(store);
  auto news = News::unknown;
  for (CommitStamp* stamp : registry().stamps) {
    if (stamp->store_ != store) continue;
    if (isIndexCut) stamp->withdraw();
    news = std::max(news, isIndexCut || stamp->isNew() ? News::some : News::none);
  }
  return news;
}

// Any look finds news from now on, and so comes to where the size of the index is checked.
void CommitStamp::withdraw() {
  if (stamp_ == &none_) return;
  std::atomic_ref(none_).store(~seen_.load());
  stamp_ = &none_;
}

void spareCutIndex(sqlite3* database) {
  const char* const file = database != nullptr ? sqlite3_db_filename(database, "main") : nullptr;
  if (file != nullptr && isCut(file)) {
    sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }
}

}  // namespace foundation
