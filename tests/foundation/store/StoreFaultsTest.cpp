// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreFixture.hpp"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>

namespace foundation {
namespace {

using QEVSettings::PreferenceValue;
using testing::SizeIs;

class StoreFaults : public StoreTest {};

TEST_F(StoreFaults, ReadOnlyStoreGoesOnInMemory) {
  Child child([&] {
    loseRootIn(folder);
    { open()->setInteger(1, "key"); }
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    std::filesystem::permissions(
        folder, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    const auto store = open();
    store->setInteger(store->integerForKey("key") + 1, "key");
    store->setInteger(3, "other");
    if (store->integerForKey("key") != 2 || !store->status() || store->synchronize() ||
        said.size() != 1)
      return 1;
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    std::filesystem::permissions(
        path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    if (!waitUntil([&] { return !store->status(); })) return 2;
    const auto other = open();
    return other->integerForKey("key") == 2 && other->integerForKey("other") == 3 &&
                   store->synchronize()
               ? 0
               : 3;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(StoreFaults, LeftoverLogInAReadOnlyFolderIsReadToItsEnd) {
  Child child([&] {
    loseRootIn(folder);
    Child writer([&] {
      const auto store = open();
      store->setInteger(1, "key");
      return ::kill(::getpid(), SIGKILL);
    });
    if (writer.wait() != -1 || !std::filesystem::exists(path.string() + "-wal")) return 1;
    using std::filesystem::perms;
    for (const bool isIndexLeftToo : {true, false}) {
      if (!isIndexLeftToo) std::filesystem::remove(path.string() + "-shm");
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::filesystem::permissions(entry.path(), perms::owner_read);
      }
      std::filesystem::permissions(folder, perms::owner_read | perms::owner_exec);
      const std::string before = contentsOf(path) + contentsOf(path.string() + "-wal");
      if (open()->integerForKey("key") != 1) return 2;
      if (contentsOf(path) + contentsOf(path.string() + "-wal") != before) return 3;
      std::filesystem::permissions(folder, perms::owner_all);
    }
    return 0;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(StoreFaults, WriteToAFullDiskIsRetriedUntilThereIsRoom) {
  Child child([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const auto store = open();
    store->setInteger(1, "before");
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{.rlim_cur = 200'000, .rlim_max = limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const PreferenceValue large = std::string(1'000'000, 'x');
    store->setObject(large, "large");
    if (store->objectForKey("large") != large || !store->status() || said.size() != 1) return 1;
    const rlimit unlimited{.rlim_cur = limit.rlim_max, .rlim_max = limit.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &unlimited);
    if (!waitUntil([&] { return !store->status(); })) return 2;
    const auto other = open();
    return other->objectForKey("large") == large && other->integerForKey("before") == 1 ? 0 : 3;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(StoreFaults, FolderAtThePathIsRetriedUntilItIsGone) {
  std::filesystem::create_directories(path);
  const auto store = open();
  store->setInteger(1, "key");
  EXPECT_EQ(store->integerForKey("key"), 1);
  ASSERT_TRUE(store->status());
  EXPECT_THAT(said, SizeIs(1));
  std::filesystem::remove(path);
  EXPECT_TRUE(waitUntil([&] { return !store->status(); }));
  EXPECT_EQ(open()->integerForKey("key"), 1);
}

TEST_F(StoreFaults, UnreadableFileIsRetriedUntilItCanBeRead) {
  Child child([&] {
    loseRootIn(folder);
    { open()->setInteger(1, "old"); }
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const auto store = open();
    store->setInteger(2, "new");
    if (store->integerForKey("new") != 2 || !store->status() || said.size() != 1) return 1;
    std::filesystem::permissions(
        path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    if (!waitUntil([&] { return !store->status(); })) return 2;
    const auto other = open();
    return store->integerForKey("old") == 1 && other->integerForKey("old") == 1 &&
                   other->integerForKey("new") == 2
               ? 0
               : 3;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(StoreFaults, FailedWriteIsRetriedAfterGrowingPauses) {
  using Clock = std::chrono::steady_clock;
  std::filesystem::create_directories(path);
  const auto store = open();
  std::vector<Clock::time_point> turns{Clock::now()};
  store->setInteger(1, "key");
  // Nothing changes in the folder, so that only another attempt wakes the main queue.
  while (turns.size() < 4) {
    ASSERT_TRUE(MainQueue::mainQueue().wait(std::chrono::seconds(20)));
    // Taken before the turn, because the next pause begins in it.
    turns.push_back(Clock::now());
    MainQueue::mainQueue().drain();
  }
  for (std::size_t i = 1; i < turns.size(); ++i) {
    EXPECT_GE(turns[i] - turns[i - 1], std::chrono::milliseconds(250) * (1 << (i - 1))) << i;
  }
  EXPECT_TRUE(store->status());
  EXPECT_THAT(said, SizeIs(1));
}

TEST_F(StoreFaults, StoreWithoutAHomeGoesOnInMemory) {
  Child child([&] {
    constexpr uid_t unknown = 54321;
    ::unsetenv("HOME");
    ::unsetenv("XDG_CONFIG_HOME");
    if (::geteuid() == 0 && ::setuid(unknown) != 0) return 1;
    if (::getuid() != unknown) return 0;  // somebody, who has a home
    UserDefaults& store = UserDefaults::standardUserDefaults();
    store.setInteger(1, "key");
    return UserDefaults::standardFile().empty() && store.status() && store.integerForKey("key") == 1
               ? 0
               : 2;
  });
  EXPECT_EQ(child.wait(), 0);
}

}  // namespace
}  // namespace foundation
