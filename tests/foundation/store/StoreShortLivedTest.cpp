// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreDamage.hpp"
#include "SystemCallFaults.hpp"

#include <gmock/gmock.h>

#include <chrono>
#include <iterator>

namespace foundation {
namespace {

using QEVSettings::Subscription;

// A store for a process that ends after a few writes.
class StoreShortLived : public DamagedStoreTest {
protected:
  std::unique_ptr<UserDefaults> openShortLived() const {
    return UserDefaults::open(path, UserDefaults::Access::shortLived);
  }
  std::int64_t valueInGoodCopy() const {
    return UserDefaults::open(goodCopy(), UserDefaults::Access::readOnly)->integerForKey("key");
  }
};

TEST_F(StoreShortLived, WritesNeedNoThreadAndLeaveNoLog) {
  const auto before = threadCount();
  {
    const auto store = openShortLived();
    store->setInteger(1, "key");
    store->setInteger(2, "other");
    store->removeObject("other");
    EXPECT_TRUE(store->synchronize());
    EXPECT_EQ(threadCount(), before);
    EXPECT_EQ(open()->integerForKey("key"), 1);
  }
  EXPECT_FALSE(std::filesystem::exists(log()));
  EXPECT_EQ(open()->integerForKey("key"), 1);
  EXPECT_FALSE(open()->objectForKey("other"));
}

// The log of the first write is not synchronised, so that nothing may be copied from it.
TEST_F(StoreShortLived, LargeWriteReachesTheFileWithSynchronize) {
  constexpr std::size_t bytes = 20'000'000;
  const auto store = openShortLived();
  store->setObject(std::string(bytes, 'x'), "large");
  EXPECT_LT(std::filesystem::file_size(path), bytes);
  EXPECT_TRUE(store->synchronize());
  EXPECT_GT(std::filesystem::file_size(path), bytes);
}

TEST_F(StoreShortLived, WriteSurvivesAKillBeforeSynchronize) {
  Child writer([&] {
    const auto store = openShortLived();
    store->setInteger(1, "key");
    return ::kill(::getpid(), SIGKILL);
  });
  writer.wait();
  EXPECT_EQ(openShortLived()->integerForKey("key"), 1);
}

TEST_F(StoreShortLived, GoodCopyIsRenewedWhenItIsOldOrLacksManyChanges) {
  const auto write = [this](int value) { openShortLived()->setInteger(value, "key"); };
  const auto setAge = [this](std::chrono::hours age) {
    std::filesystem::last_write_time(goodCopy(),
                                     std::filesystem::file_time_type::clock::now() - age);
  };
  write(1);
  EXPECT_EQ(valueInGoodCopy(), 1) << "there was none";
  for (int i = 2; i <= 32; ++i) write(i);
  EXPECT_EQ(valueInGoodCopy(), 1);
  write(33);
  EXPECT_EQ(valueInGoodCopy(), 33);
  int value = 34;
  for (const int hours : {25, -9}) {
    write(value);
    EXPECT_NE(valueInGoodCopy(), value);
    setAge(std::chrono::hours(hours));
    write(++value);
    EXPECT_EQ(valueInGoodCopy(), value++);
  }
  write(value);
  open();
  EXPECT_EQ(valueInGoodCopy(), value) << "a store that is not short-lived renews it at close";
}

TEST_F(StoreShortLived, ObserverIsToldOfOtherWriters) {
  const auto store = openShortLived();
  std::vector<std::string> heard;
  const Subscription all =
      store->observeAll([&](std::string_view key) { heard.emplace_back(key); });
  const auto other = openShortLived();
  other->setInteger(1, "theirs");
  EXPECT_TRUE(other->synchronize());
  EXPECT_TRUE(waitUntil([&] { return !heard.empty(); }));
  EXPECT_THAT(heard, testing::ElementsAre("theirs"));
}

TEST_F(StoreShortLived, FailedSystemCallIsReportedOrHarmless) {
  constexpr int saysSo = 2;
  { open()->setInteger(1, "key"); }
  keepFiles();
  const auto use = [&](SystemCallFault fault, long number) {
    putFilesBack();
    Child child([&] {
      setDiagnosticSink([](std::string_view) {});
      beginSystemCallFault(fault, number);
      bool isStored = false;
      {
        const auto store = openShortLived();
        store->setInteger(2, "key");
        isStored = store->synchronize() && !store->status();
      }
      const long calls = endSystemCallFault();
      if (fault == SystemCallFault::none) return static_cast<int>(std::min(calls, 255L));
      return isStored ? 0 : saysSo;
    });
    return child.wait();
  };
  const int calls = use(SystemCallFault::none, 0);
  ASSERT_GT(calls, 50);
  for (const auto fault : {SystemCallFault::fail, SystemCallFault::end}) {
    for (int number = 1; number <= calls; number += runs(7, 1)) {
      SCOPED_TRACE(number);
      const int code = use(fault, number);
      ASSERT_TRUE(code == 0 || code == saysSo || code == kEndedByFault) << code;
      const auto value = open()->integerForKey("key");
      EXPECT_TRUE(value == 2 || (value == 1 && code != 0)) << value << " after " << code;
    }
  }
}

}  // namespace
}  // namespace foundation
