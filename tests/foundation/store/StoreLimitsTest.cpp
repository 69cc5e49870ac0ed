// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreFixture.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <string>

namespace foundation {
namespace {

using QEVSettings::PreferenceValue;
using QEVSettings::Subscription;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kIsSanitized = true;
#else
constexpr bool kIsSanitized = false;
#endif

class StoreLimits : public StoreTest {};

void limit(__rlimit_resource resource, rlim_t most) {
  rlimit now{};
  ::getrlimit(resource, &now);
  now.rlim_cur = std::min(most, now.rlim_max);
  ::setrlimit(resource, &now);
}

rlim_t addressSpace() {
  std::ifstream sizes("/proc/self/statm");
  rlim_t pages = 0;
  sizes >> pages;
  return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

TEST_F(StoreLimits, FileSizeLimitEndsInAStatusUntilItIsRaised) {
  for (const bool isNew : {true, false}) {
    SCOPED_TRACE(isNew);
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    Child child([&] {
      if (!isNew) open()->setInteger(0, "before");
      limit(RLIMIT_FSIZE, 8192);
      {
        const auto store = open();
        store->setObject(std::string(100'000, 'x'), "key");
        if (!store->status() || store->synchronize() || said.empty()) return 1;
        sigset_t signals;
        ::sigpending(&signals);
        if (::sigismember(&signals, SIGXFSZ) != 0) return 2;
        ::pthread_sigmask(SIG_BLOCK, nullptr, &signals);
        if (::sigismember(&signals, SIGXFSZ) != 0) return 3;
      }
      const auto store = open();
      store->setObject(std::string(100'000, 'y'), "key");
      limit(RLIMIT_FSIZE, RLIM_INFINITY);
      if (!waitUntil([&] { return !store->status(); })) return 4;
      return open()->stringForKey("key") == std::string(100'000, 'y') ? 0 : 5;
    });
    EXPECT_EQ(child.wait(), 0);
  }
}

// Larger than any memory that the allocator keeps for later.
constexpr std::size_t kLargeBytes = 40'000'000;

TEST_F(StoreLimits, WriteWithoutMemoryEndsInAStatus) {
  if (kIsSanitized) GTEST_SKIP() << "a sanitizer reserves more address space than can be limited";
  const PreferenceValue text = std::string(kLargeBytes, 'x');
  for (const PreferenceValue& value : {text, PreferenceValue(PreferenceValue::Array{text})}) {
    SCOPED_TRACE(nameOf(value.type()));
    Child child([&] {
      const auto store = open();
      store->setInteger(1, "small");
      limit(RLIMIT_AS, addressSpace() + kLargeBytes / 2);
      store->setObject(value, "large");
      if (!store->status() || said.size() != 1) return 1;
      limit(RLIMIT_AS, RLIM_INFINITY);
      store->removeObject("large");
      store->setInteger(2, "small");
      return waitUntil([&] { return !store->status(); }) && open()->integerForKey("small") == 2 ? 0
                                                                                                : 2;
    });
    EXPECT_EQ(child.wait(), 0);
  }
}

TEST_F(StoreLimits, ReadWithoutMemoryEndsInAStatusAndIsNoDamage) {
  if (kIsSanitized) GTEST_SKIP() << "a sanitizer reserves more address space than can be limited";
  const PreferenceValue value = PreferenceValue::Array{std::string(kLargeBytes, 'x')};
  Child child([&]() -> int {
    const auto store = open();
    const auto other = open();
    other->setObject(value, "large");
    limit(RLIMIT_AS, addressSpace() + kLargeBytes / 2);
    int problem = 0;
    if (store->objectForKey("large") || !store->status()) problem = 1;
    if (!open()->status()) problem = 2;
    limit(RLIMIT_AS, RLIM_INFINITY);
    if (store->objectForKey("large") != value) problem = 3;
    // Ends without closing the store, which would make a good copy.
    ::_exit(problem);
  });
  EXPECT_EQ(child.wait(), 0);
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    EXPECT_THAT(entry.path().string(), Not(HasSubstr("damaged")));
  }
}

TEST_F(StoreLimits, ProcessWithoutThreadsWritesToTheDiskAndNoticesChanges) {
  if (::geteuid() != 0) GTEST_SKIP() << "the limit would meet the other processes of this user";
  Child child([&] {
    constexpr uid_t unknown = 54323;
    if (::chown(folder.c_str(), unknown, unknown) != 0 || ::setgid(unknown) != 0 ||
        ::setuid(unknown) != 0)
      return 1;
    limit(RLIMIT_NPROC, 0);
    const auto store = open();
    std::vector<std::string> heard;
    const Subscription all =
        store->observeAll([&](std::string_view key) { heard.emplace_back(key); });
    const auto other = open();
    for (int i = 1; i <= 20; ++i) other->setInteger(i, "key");
    if (other->status() || !other->synchronize()) return 2;
    if (!waitUntil([&] { return !heard.empty(); })) return 3;
    return store->integerForKey("key") == 20 && !said.empty() ? 0 : 4;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(StoreLimits, StoreWithFewDescriptorsReadsAndWritesItsMemory) {
  if (kIsSanitized) GTEST_SKIP() << "a sanitizer checks memory through descriptors of its own";
  { open()->setInteger(1, "key"); }
  for (rlim_t spare = 0; spare < 12; ++spare) {
    SCOPED_TRACE(spare);
    Child child([&] {
      limit(RLIMIT_NOFILE,
            static_cast<rlim_t>(::open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) + 1 + spare);
      const auto store = open();
      const Subscription all = store->observeAll([](std::string_view) {});
      store->setInteger(2, "key");
      if (store->integerForKey("key") != 2) return 1;
      const bool isSaved = !store->status();
      limit(RLIMIT_NOFILE, 1000);
      if (!waitUntil([&] { return !store->status(); })) return 2;
      return open()->integerForKey("key") == 2 && (isSaved || !said.empty()) ? 0 : 3;
    });
    EXPECT_EQ(child.wait(), 0);
  }
}

TEST_F(StoreLimits, PipesBesideTheStoreAreNotOpened) {
  for (const char* ending : {"-wal", "-shm", "-journal", ".good", ".lock"}) {
    SCOPED_TRACE(ending);
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    { open()->setInteger(1, "key"); }
    const auto pipe = path.string() + ending;
    std::filesystem::remove(pipe);
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const auto store = open();
    store->setInteger(2, "key");
    EXPECT_EQ(store->integerForKey("key"), 2);
    EXPECT_EQ(store->status().has_value(), ending[0] == '-');
    std::filesystem::remove(pipe);
    EXPECT_TRUE(waitUntil([&] { return !store->status(); }));
    EXPECT_EQ(open()->integerForKey("key"), 2);
  }
}

TEST_F(StoreLimits, ViewWithEndlessRowsIsDamage) {
  { open()->setInteger(1, "key"); }
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
  ASSERT_EQ(
      sqlite3_exec(
          database,
          "ALTER TABLE preferences RENAME TO kept;"
          "CREATE VIEW preferences AS WITH RECURSIVE rows (change) AS (SELECT 1 UNION ALL SELECT "
          "change "
          "+ 1 FROM rows) SELECT rows.change AS change, key, type, value, sum FROM rows, kept",
          nullptr, nullptr, nullptr),
      SQLITE_OK);
  sqlite3_close(database);
  const auto store = open();
  store->setInteger(2, "other");
  EXPECT_THAT(said, Not(IsEmpty()));
  EXPECT_EQ(store->integerForKey("other"), 2);
}

// Lets all entries of an interior page lead to its first child, so that the rows of the child come
// again and again.
TEST_F(StoreLimits, PageReferencedTwiceIsDamage) {
  {
    const auto store = open();
    QEVSettings::PreferenceDictionary many;
    for (int i = 0; i < 2000; ++i) many.emplace("key " + std::to_string(i), std::string(200, 'x'));
    ASSERT_TRUE(store->applyAll(many));
  }
  std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
  std::string contents(std::istreambuf_iterator<char>(file), {});
  constexpr std::size_t pageBytes = 4096;
  constexpr char interiorTable = 5;
  const auto number = [&](std::size_t at) {
    return std::size_t{static_cast<std::uint8_t>(contents[at])} << 8 |
           static_cast<std::uint8_t>(contents[at + 1]);
  };
  int pages = 0;
  for (std::size_t page = pageBytes; page < contents.size(); page += pageBytes) {
    if (contents[page] != interiorTable) continue;
    ++pages;
    const std::size_t first = page + number(page + 12);
    for (std::size_t i = 1; i < number(page + 3); ++i) {
      contents.replace(page + number(page + 12 + 2 * i), 4, contents, first, 4);
    }
  }
  ASSERT_GT(pages, 0);
  file.seekp(0);
  file << contents << std::flush;
  const auto store = open();
  EXPECT_THAT(said, testing::ElementsAre(HasSubstr("damaged")));
  EXPECT_EQ(store->dictionaryRepresentation().size(), 2000U);
}

enum class Next { wakeUp, write, close };

TEST_F(StoreLimits, StoreWithTruncatedIndexIsOpenedAgain) {
  for (const Next next : {Next::wakeUp, Next::write, Next::close}) {
    SCOPED_TRACE(static_cast<int>(next));
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    Child child([&] {
      auto store = open();
      const Subscription all = store->observeAll([](std::string_view) {});
      store->setInteger(1, "key");
      MainQueue::mainQueue().drainAll();
      if (::truncate((path.string() + "-shm").c_str(), 0) != 0) return 1;
      if (next == Next::wakeUp) {
        if (!MainQueue::mainQueue().wait(std::chrono::seconds(60))) return 2;
        MainQueue::mainQueue().drainAll();
      }
      if (next != Next::close) store->setInteger(2, "key");
      const bool isGood = !store->status();
      store.reset();
      return isGood && open()->integerForKey("key") == (next == Next::close ? 1 : 2) ? 0 : 3;
    });
    EXPECT_EQ(child.wait(), 0);
  }
}

}  // namespace
}  // namespace foundation
