// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreFixture.hpp"
#include "foundation/Unicode.hpp"

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <map>
#include <random>

namespace foundation {
namespace {

using QEVSettings::PreferenceValue;
using testing::IsEmpty;

class StoreDurability : public StoreTest {};

TEST_F(StoreDurability, AcknowledgedWritesSurviveAKill) {
  std::mt19937 random(1);
  std::map<std::string, std::int64_t> acknowledged;
  std::int64_t next = 0;
  for (int round = 0; round < runs(25, 200); ++round) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe(pipe.data()), 0);
    const Child writer([&] {
      const auto store = open();
      for (std::int64_t i = next;; ++i) {
        store->setInteger(i, "key " + std::to_string(i % 7));
        if (store->status()) return 1;
        if (::write(pipe[1], &i, sizeof i) != sizeof i) return 1;
      }
    });
    ::close(pipe[1]);
    std::int64_t last = next - 1;
    ASSERT_EQ(::read(pipe[0], &last, sizeof last), static_cast<ssize_t>(sizeof last));
    acknowledged["key " + std::to_string(last % 7)] = last;
    ::usleep(random() % 20'000);
    writer.kill();
    while (::read(pipe[0], &last, sizeof last) == sizeof last)
      acknowledged["key " + std::to_string(last % 7)] = last;
    ::close(pipe[0]);
    next = last + 2;  // the one after the last may have been written too
    const auto store = open();
    ASSERT_EQ(store->status(), std::nullopt);
    for (auto& [key, value] : acknowledged) {
      const std::int64_t stored = store->integerForKey(key);
      ASSERT_TRUE(stored == value || stored == last + 1)
          << key << " is " << stored << ", not " << value;
      value = stored;
    }
  }
  EXPECT_THAT(said, IsEmpty());
}

// A power cut leaves the log without its last frames, or with a part of a frame and other bytes
// after it.
TEST_F(StoreDurability, PowerCutUndoesOnlyTheLastWrites) {
  Child writer([&] {
    const auto store = open();
    for (int i = 0; i < 60; ++i) store->setInteger(i, "key " + std::to_string(i));
    return ::kill(::getpid(), SIGKILL);
  });
  ASSERT_EQ(writer.wait(), -1);
  const std::string log = contentsOf(path.string() + "-wal");
  const std::string file = contentsOf(path);
  std::size_t kept = 0;
  for (std::size_t length = 0; length <= log.size(); length += 1 + log.size() / 50) {
    for (const bool isFollowedByOther : {false, true}) {
      SCOPED_TRACE(length);
      std::filesystem::remove(path.string() + "-shm");
      overwrite(path, file);
      overwrite(path.string() + "-wal",
                log.substr(0, length) + (isFollowedByOther ? std::string(9000, '\xA5') : ""));
      Child reader([&] {
        const auto store = open();
        const auto values = store->dictionaryRepresentation();
        for (std::size_t i = 0; i < values.size(); ++i) {
          if (store->objectForKey("key " + std::to_string(i)) !=
              PreferenceValue(static_cast<int>(i)))
            return 100;
        }
        // A frame with wrong contents shows that there was a write, so that its loss is reported.
        if (store->status() || said.size() > (isFollowedByOther ? 1U : 0U)) return 101;
        // Ends without closing the store, which would change the file.
        ::_exit(static_cast<int>(values.size()));
      });
      const int found = reader.wait();
      ASSERT_LE(found, 60);
      ASSERT_GE(found, static_cast<int>(kept));
      kept = static_cast<std::size_t>(found);
    }
  }
  EXPECT_GT(kept, 50U);
}

TEST_F(StoreDurability, LargeValuesAreKeptAndTooLargeOnesRefused) {
  const PreferenceValue large = PreferenceValue::Bytes(100'000'000, 7);
  const std::string longKey(1'000'000, 'k');
  const int keys = runs(20'000, 1'000'000);
  constexpr char32_t planes = 17;  // of Unicode
  const auto keyInPlane = [](char32_t plane) {
    std::string key;
    appendUtf8(key, plane << 16 | 0x263A);
    return key;
  };
  {
    const auto store = open();
    store->setObject(large, "large");
    store->setInteger(1, longKey);
    QEVSettings::PreferenceDictionary many;
    for (int i = 0; i < keys; ++i) many.emplace("key " + std::to_string(i), i);
    for (char32_t plane = 0; plane < planes; ++plane)
      many.emplace(keyInPlane(plane), static_cast<int>(plane));
    EXPECT_TRUE(store->applyAll(many));
    EXPECT_EQ(store->status(), std::nullopt);
  }
  const auto store = open();
  EXPECT_EQ(store->objectForKey("large"), large);
  EXPECT_EQ(store->integerForKey(longKey), 1);
  EXPECT_EQ(store->dictionaryRepresentation().size(), static_cast<std::size_t>(keys) + 2 + planes);
  for (char32_t plane = 0; plane < planes; ++plane) {
    EXPECT_EQ(store->objectForKey(keyInPlane(plane)), PreferenceValue(static_cast<int>(plane)));
  }
  EXPECT_EQ(store->integerForKey("key " + std::to_string(keys - 1)), keys - 1);
  if (runs(0, 1) == 0) return;  // the rest takes gigabytes
  // NOLINTNEXTLINE(bugprone-string-constructor)
  store->setObject(std::string(999'000'001, 'x'), "too large");
  EXPECT_TRUE(store->status());
  EXPECT_FALSE(store->objectForKey("too large"));
}

}  // namespace
}  // namespace foundation
