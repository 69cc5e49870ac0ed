// SPDX-License-Identifier: MIT
#include "StoreDamage.hpp"
#include "WaitingChild.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <gmock/gmock.h>

#include <functional>

namespace foundation {
namespace {

using QEVSettings::Subscription;

// A store whose files are removed, moved or replaced while it is open.
class StoreReplacement : public DamagedStoreTest {
protected:
  StoreReplacement() : DamagedStoreTest("folder") {}

  struct Case {
    const char* name;
    std::function<void()> replace;
  };
  std::vector<Case> cases() const {
    return {
        {"file, log and index removed",
         [this] {
           for (const char* ending : {"", "-wal", "-shm"})
             std::filesystem::remove(path.string() + ending);
         }},
        {"file removed", [this] { std::filesystem::remove(path); }},
        {"log removed", [this] { std::filesystem::remove(log()); }},
        {"index removed", [this] { std::filesystem::remove(path.string() + "-shm"); }},
        {"another store moved over it",
         [this] {
           const auto other = folder / "other";
           { UserDefaults::open(other)->setInteger(5, "of the other"); }
           std::filesystem::rename(other, path);
         }},
        {"folder removed", [this] { std::filesystem::remove_all(folder); }},
        {"folder moved away", [this] { std::filesystem::rename(folder, moved); }},
    };
  }
  void SetUp() override {
    StoreTest::SetUp();
    std::filesystem::create_directory(folder);
  }
  void clear() const {
    std::filesystem::remove_all(moved);
    std::filesystem::create_directory(folder);
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove_all(entry.path());
  }

  const std::filesystem::path moved = scratch.path() / "moved";
};

TEST_F(StoreReplacement, NextWriteAddsNewerChangesFromMemory) {
  for (const auto& [name, replace] : cases()) {
    SCOPED_TRACE(name);
    clear();
    const auto store = open();
    for (int i = 0; i < 100; ++i) store->setInteger(i, "key " + std::to_string(i));
    store->removeObject("key 7");
    const bool isOther = std::string_view(name).starts_with("another");
    replace();
    store->setInteger(1, "after");
    EXPECT_EQ(store->status(), std::nullopt);
    const auto other = open();
    EXPECT_EQ(other->dictionaryRepresentation().size(), isOther ? 101U : 100U);
    EXPECT_EQ(other->integerForKey("after"), 1);
    EXPECT_EQ(other->integerForKey("key 99"), 99);
    EXPECT_EQ(other->integerForKey("of the other"), isOther ? 5 : 0);
    EXPECT_EQ(store->integerForKey("of the other"), isOther ? 5 : 0);
    EXPECT_TRUE(verifyPreferences(path).isGood);
    // Each reads the writes of the other again.
    other->setInteger(2, "after");
    EXPECT_EQ(store->integerForKey("after"), 2);
  }
}

TEST_F(StoreReplacement, ClosingAddsNewerChangesFromMemory) {
  for (const auto& [name, replace] : cases()) {
    SCOPED_TRACE(name);
    clear();
    {
      const auto store = open();
      store->setInteger(1, "key");
      replace();
    }
    EXPECT_EQ(open()->integerForKey("key"), 1);
    EXPECT_TRUE(verifyPreferences(path).isGood);
  }
}

TEST_F(StoreReplacement, ObserversAreToldOfTheNewFile) {
  for (const auto& [name, replace] : cases()) {
    SCOPED_TRACE(name);
    clear();
    WaitingChild other([&] {
      const auto theirs = open();
      theirs->setInteger(3, "theirs");
      return theirs->status() || theirs->integerForKey("key") != 2 ? 1 : 0;
    });
    const auto store = open();
    store->setInteger(1, "key");
    std::vector<std::string> heard;
    const Subscription all =
        store->observeAll([&](std::string_view key) { heard.emplace_back(key); });
    replace();
    store->setInteger(2, "key");
    other.start();
    EXPECT_EQ(other.wait(), 0);
    EXPECT_TRUE(waitUntil([&] { return !heard.empty() && heard.back() == "theirs"; }));
  }
}

TEST_F(StoreReplacement, TwoRunningStoresAddTheNewerChangesOfBoth) {
  for (const auto& [name, replace] : cases()) {
    SCOPED_TRACE(name);
    clear();
    const auto first = open();
    first->setInteger(1, "first");
    first->setInteger(1, "both");
    const auto second = open();
    second->setInteger(2, "both");
    EXPECT_EQ(first->integerForKey("both"), 2);
    second->setInteger(2, "second");
    replace();
    // It has not read the last change of the other.
    first->setInteger(3, "after");
    second->setInteger(4, "after too");
    EXPECT_EQ(first->integerForKey("second"), 2);
    const auto third = open();
    EXPECT_EQ(third->integerForKey("first"), 1);
    EXPECT_EQ(third->integerForKey("both"), 2);
    EXPECT_EQ(third->integerForKey("second"), 2);
    EXPECT_EQ(third->integerForKey("after"), 3);
    EXPECT_EQ(third->integerForKey("after too"), 4);
  }
}

}  // namespace
}  // namespace foundation
