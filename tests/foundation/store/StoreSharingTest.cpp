// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreFixture.hpp"
#include "WaitingChild.hpp"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <array>

namespace foundation {
namespace {

using QEVSettings::PreferenceValue;
using QEVSettings::Subscription;
using testing::SizeIs;

class StoreSharing : public StoreTest {};

TEST_F(StoreSharing, ObserversAreToldOfAnotherProcessWithoutARead) {
  open()->setInteger(1, "before");
  WaitingChild writer([&] {
    const auto store = open();
    store->setObject("new", "added");
    store->removeObject("before");
    return store->status() ? 1 : 0;
  });
  const auto store = open();
  std::vector<std::string> heard;
  const Subscription all =
      store->observeAll([&](std::string_view key) { heard.emplace_back(key); });
  writer.start();
  EXPECT_TRUE(waitUntil([&] { return heard.size() == 2; }));
  EXPECT_THAT(heard, testing::ElementsAre("added", "before"));
  EXPECT_EQ(store->stringForKey("added"), "new");
  EXPECT_EQ(writer.wait(), 0);
}

TEST_F(StoreSharing, EightWritersLoseNothing) {
  constexpr int writers = 8;
  const int writes = runs(25, 500);
  std::vector<Child> children;
  children.reserve(writers);
  for (int writer = 0; writer < writers; ++writer) {
    children.emplace_back([&, writer] {
      const auto store = open();
      for (int i = 0; i < writes; ++i) {
        store->setInteger(i, "own " + std::to_string(writer) + " " + std::to_string(i % 10));
        store->setInteger(writer, "shared");
      }
      return 0;
    });
  }
  for (Child& child : children) EXPECT_EQ(child.wait(), 0);
  const auto store = open();
  for (int writer = 0; writer < writers; ++writer) {
    for (int i = writes - 10; i < writes; ++i) {
      const std::string key = "own " + std::to_string(writer) + " " + std::to_string(i % 10);
      EXPECT_EQ(store->objectForKey(key), PreferenceValue(i)) << key;
    }
  }
  EXPECT_EQ(store->dictionaryRepresentation().size(), 10U * writers + 1);
}

TEST_F(StoreSharing, StuckProcessDoesNotBlockOthers) {
  open()->setInteger(0, "key");
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const Child stuck([&] {
    sqlite3* database = nullptr;
    if (sqlite3_open(path.c_str(), &database) != SQLITE_OK) return 1;
    if (sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK) return 1;
    [[maybe_unused]] const auto told = ::write(pipe[1], "!", 1);
    while (true) ::pause();
  });
  char isHolding = 0;
  ASSERT_EQ(::read(pipe[0], &isHolding, 1), 1);
  const auto store = open();
  for (int i = 1; i <= 1000; ++i) store->setInteger(i, "key");
  EXPECT_EQ(store->integerForKey("key"), 1000);
  ASSERT_TRUE(store->status());
  EXPECT_THAT(said, SizeIs(1));
  stuck.kill();
  EXPECT_TRUE(waitUntil([&] { return !store->status(); }));
  EXPECT_EQ(open()->integerForKey("key"), 1000);
  ::close(pipe[0]);
  ::close(pipe[1]);
}

}  // namespace
}  // namespace foundation
