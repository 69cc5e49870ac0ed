// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreDamage.hpp"
#include "WaitingChild.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <gmock/gmock.h>
#include <sys/resource.h>

#include <csignal>
#include <functional>

namespace foundation {
namespace {

using QEVSettings::PreferenceValue;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Outcome = QEVSettings::StoreOpening::Outcome;

class StoreRecovery : public DamagedStoreTest {
protected:
  // The contents of the damaged files that were kept.
  std::vector<std::string> setAside() const {
    std::vector<std::string> contents;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().string().find(".damaged-") != std::string::npos)
        contents.push_back(contentsOf(entry.path()));
    }
    return contents;
  }
};

TEST_F(StoreRecovery, DamagedFileIsRecoveredWithItsGoodCopy) {
  const PreferenceValue text = std::string(20'000, 'x');
  struct Case {
    const char* name;
    std::function<void(const std::string& intact)> damage;
  };
  const Case cases[] = {
      {"empty", [&](const std::string&) { overwrite(path, ""); }},
      {"truncated",
       [&](const std::string& intact) { overwrite(path, intact.substr(0, intact.size() / 2)); }},
      {"foreign text", [&](const std::string&) { overwrite(path, std::string(5000, '#')); }},
      {"first page scribbled over",
       [&](const std::string& intact) {
         overwrite(path, intact.substr(0, 16) + std::string(4000, '\xA5') + intact.substr(4016));
       }},
      {"one letter of a long value changed",
       [&](std::string intact) {
         intact[intact.rfind("xxxxxxxx")] = 'y';
         overwrite(path, intact);
       }},
  };
  for (const auto& [name, damage] : cases) {
    SCOPED_TRACE(name);
    std::filesystem::remove_all(folder);
    {
      const auto store = open();
      store->setObject(text, "text");
      store->setInteger(1, "number");
      store->setObject("SECRET", "secret");
    }
    for (const char* ending : {"-wal", "-shm"})
      ASSERT_FALSE(std::filesystem::exists(path.string() + ending));
    const std::string intact = contentsOf(path);
    damage(intact);
    const std::string damaged = contentsOf(path);
    EXPECT_FALSE(verifyPreferences(path).isGood);
    EXPECT_EQ(contentsOf(path), damaged);
    said.clear();
    {
      const auto store = open();
      EXPECT_EQ(store->objectForKey("text"), text);
      EXPECT_EQ(store->integerForKey("number"), 1);
      EXPECT_EQ(store->status(), std::nullopt);
      EXPECT_EQ(store->opening().outcome, Outcome::restored);
      EXPECT_THAT(said, SizeIs(1));
      EXPECT_THAT(said, Each(HasSubstr(".damaged-")));
      EXPECT_THAT(said, Each(Not(HasSubstr("SECRET"))));
      store->setInteger(2, "number");
    }
    EXPECT_EQ(open()->integerForKey("number"), 2);
    const auto verification = verifyPreferences(path);
    EXPECT_TRUE(verification.isGood);
    EXPECT_THAT(verification.sentences,
                testing::ElementsAre(HasSubstr("in order: 3 keys"), HasSubstr("in order: 3 keys"),
                                     HasSubstr("set aside")));
    EXPECT_EQ(setAside(), std::vector<std::string>{damaged});
  }
}

TEST_F(StoreRecovery, StoreWithoutAnyReadableValueBeginsEmpty) {
  for (const bool hasCopy : {false, true}) {
    SCOPED_TRACE(hasCopy);
    { open()->setInteger(1, "key"); }
    const std::string garbage(5 * kPage, '#');
    overwriteAt(path, 100, garbage);
    if (hasCopy) {
      overwriteAt(goodCopy(), 100, garbage);
    } else {
      std::filesystem::remove(goodCopy());
    }
    said.clear();
    const auto store = open();
    EXPECT_THAT(store->dictionaryRepresentation(), IsEmpty());
    EXPECT_EQ(store->status(), std::nullopt);
    EXPECT_EQ(store->opening().outcome, Outcome::begunEmpty);
    EXPECT_THAT(said, testing::ElementsAre(HasSubstr(hasCopy ? "its good copy is damaged too"
                                                             : "there is no good copy")));
    store->setInteger(2, "key");
    EXPECT_EQ(open()->integerForKey("key"), 2);
  }
}

// Reading all rows does not find this damage. A write, or the next start, recovers the store.
TEST_F(StoreRecovery, WriteThatFindsDamageSucceeds) {
  struct Case {
    const char* name;
    std::size_t offset;
    std::string bytes;
  };
  const Case cases[] = {
      {"index page zeroed", 2 * kPage, std::string(kPage, '\0')},
      {"write version", 18, "\x07"},
      {"count of free pages", 36, std::string(4, '\x7F')},
      {"first free page", 32, std::string("\0\0\0\x02\0\0\0\x01", 8)},
      {"largest root page", 52, std::string("\0\0\0\x09", 4)},
  };
  for (const auto& [name, offset, bytes] : cases) {
    SCOPED_TRACE(name);
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove(entry);
    makeGoodCopy();
    overwriteAt(path, offset, bytes);
    {
      const auto store = open();
      for (int i = 0; i < 3; ++i)
        store->setObject(std::string(3000, 'z'), "added " + std::to_string(i));
      store->removeObject("old 7");
      EXPECT_EQ(store->status(), std::nullopt);
    }
    EXPECT_TRUE(verifyPreferences(path).isGood);
    const auto store = open();
    EXPECT_EQ(store->dictionaryRepresentation().size(), 43U);
    EXPECT_EQ(store->stringForKey("old 39"), oldValue(39));
  }
}

TEST_F(StoreRecovery, FlippedBitInTheIndexDeletesNoOtherKey) {
  {
    const auto store = open();
    for (int i = 1; i <= 5; ++i) store->setInteger(i, "k" + std::to_string(i));
  }
  const std::string contents = contentsOf(path);
  const std::size_t entry = contents.find(std::string("\x10\x01k2\x02", 5));
  ASSERT_NE(entry, std::string::npos);
  overwriteAt(path, entry + 4, "\x05");
  {
    const auto store = open();
    store->setInteger(22, "k2");
    EXPECT_EQ(store->status(), std::nullopt);
  }
  for (const char* ending : {"", ".good"}) {
    const auto store = UserDefaults::open(path.string() + ending, UserDefaults::Access::readOnly);
    EXPECT_EQ(store->integerForKey("k2"), 22);
    EXPECT_EQ(store->integerForKey("k5"), 5);
    EXPECT_EQ(store->dictionaryRepresentation().size(), 5U);
  }
}

// The file or its log lacks changes that the good copy has.
TEST_F(StoreRecovery, LossIsReportedWithTheNumberOfKeys) {
  struct Case {
    const char* name;
    std::function<void()> damage;
    Outcome outcome;
    std::size_t lostKeys;
  };
  const std::size_t frame = kPage + 24;
  const Case cases[] = {
      {"file of one byte", [&] { overwrite(path, "S"); }, Outcome::restored, 0},
      {"file missing", [&] { std::filesystem::remove(path); }, Outcome::restored, 0},
      {"pages swapped",
       [&] {
         const std::string contents = contentsOf(path);
         const auto pages = pagesWithRows(contents);
         overwriteAt(path, pages.at(0), contents.substr(pages.at(1), kPage));
         overwriteAt(path, pages.at(1), contents.substr(pages.at(0), kPage));
       },
       Outcome::restored, 0},
      {"last write of the log garbled",
       [&] {
         const std::size_t last = (contentsOf(log()).size() - 32) / frame - 1;
         overwriteAt(log(), 32 + last * frame + 24 + kPage - 16, std::string(16, '\xA5'));
       },
       Outcome::restored, 0},
      {"header of the log garbled", [&] { overwriteAt(log(), 16, "\x01\x02\x03"); },
       Outcome::restored, 0},
  };
  for (const auto& [name, damage, outcome, lostKeys] : cases) {
    SCOPED_TRACE(name);
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove(entry);
    makeGoodCopy();
    writeWithoutCopy();
    damage();
    said.clear();
    const auto store = open();
    expectOldKeys(*store);
    EXPECT_EQ(store->opening().outcome, outcome);
    EXPECT_EQ(store->opening().lostKeys, lostKeys);
    EXPECT_THAT(said, SizeIs(1));
    EXPECT_EQ(store->status(), std::nullopt);
  }
}

TEST_F(StoreRecovery, ValueThatNoSourceHasIsCounted) {
  makeGoodCopy();
  writeWithoutCopy();
  const std::string contents = contentsOf(log());
  // The value of the row, in every version of its page.
  for (std::size_t at = contents.find("newer"); at != std::string::npos;
       at = contents.find("newer", at + 1)) {
    overwriteAt(log(), at, "NEWER");
  }
  const auto store = open();
  EXPECT_EQ(store->stringForKey("old 0"), oldValue(0));
  EXPECT_EQ(store->opening().lostKeys, 1U);
  EXPECT_THAT(said, testing::ElementsAre(HasSubstr("the last change of 1 key is lost")));
}

// The log was restarted after the copy was made. Without the log, the file is older than the copy.
TEST_F(StoreRecovery, FileOlderThanItsGoodCopyTakesTheNewerChanges) {
  makeGoodCopy();
  const std::string older = contentsOf(path);
  {
    const auto store = open();
    store->setObject("newer", "old 0");
    store->removeObject("old 1");
  }
  overwrite(path, older);
  const auto store = open();
  EXPECT_EQ(store->stringForKey("old 0"), "newer");
  EXPECT_FALSE(store->objectForKey("old 1"));
  EXPECT_TRUE(store->opening().copyTime);
  EXPECT_THAT(said, testing::ElementsAre(HasSubstr("had lost its last changes")));
}

TEST_F(StoreRecovery, RunningStoreKeepsItsNewerValuesWhenAnotherRecovers) {
  makeGoodCopy();
  WaitingChild other([&] {
    overwriteAt(path, 2 * kPage, std::string(kPage, '\0'));
    const auto store = open();
    store->setInteger(2, "theirs");
    return store->status() ? 1 : 0;
  });
  const auto running = open();
  running->setInteger(1, "only here");
  running->setObject("newer", "old 0");
  // The log is lost, and another process recovers the store without it.
  overwriteAt(log(), 0, std::string(contentsOf(log()).size(), '\0'));
  other.start();
  EXPECT_EQ(other.wait(), 0);
  EXPECT_EQ(running->integerForKey("theirs"), 2);
  EXPECT_TRUE(waitUntil([&] { return open()->integerForKey("only here") == 1; }));
  const auto store = open();
  EXPECT_EQ(store->stringForKey("old 0"), "newer");
  EXPECT_EQ(store->integerForKey("theirs"), 2);
  expectOldKeys(*store);
  EXPECT_EQ(running->integerForKey("only here"), 1);
}

TEST_F(StoreRecovery, EightStartsOnADamagedStoreLoseNothing) {
  const int rounds = runs(5, 60);
  for (int round = 0; round < rounds; ++round) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove(entry);
    makeGoodCopy();
    writeWithoutCopy();
    overwriteAt(path, (2 + round % 2) * kPage, std::string(kPage, '\0'));
    overwriteAt(path, 18, "\x07");
    std::vector<Child> children;
    children.reserve(8);
    for (int writer = 0; writer < 8; ++writer) {
      children.emplace_back([&, writer] {
        const auto store = open();
        for (int i = 0; i < 12; ++i) {
          store->setInteger(i, "added " + std::to_string(writer) + " " + std::to_string(i));
        }
        // A value that could not be written yet does not count as acknowledged.
        return waitUntil([&] { return !store->status(); }) ? 0 : 1;
      });
    }
    for (Child& child : children) EXPECT_EQ(child.wait(), 0);
    const auto store = open();
    expectOldKeys(*store);
    expectNewKeys(*store);
    EXPECT_EQ(store->dictionaryRepresentation().size(), 41U + 10 + 96);
    EXPECT_TRUE(verifyPreferences(path).isGood);
  }
}

TEST_F(StoreRecovery, FullDiskLeavesADamagedStoreAsItWas) {
  makeGoodCopy();
  overwriteAt(path, 2 * kPage, std::string(kPage, '\0'));
  overwriteAt(path, 18, "\x07");
  Child child([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ::getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = kPage;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const auto store = open();
    expectOldKeys(*store);
    return store->status() && store->opening().outcome == Outcome::inMemory && !HasFailure() ? 0
                                                                                             : 1;
  });
  EXPECT_EQ(child.wait(), 0);
  const auto store = open();
  EXPECT_EQ(store->opening().outcome, Outcome::restored);
  expectOldKeys(*store);
}

TEST_F(StoreRecovery, ReadOnlyOpeningRecoversInMemoryOnly) {
  makeGoodCopy();
  writeWithoutCopy();
  overwriteAt(path, 3 * kPage, std::string(kPage, '\0'));
  overwriteAt(path, 0, "garbage");
  const auto before = filesIn(folder);
  const auto store = UserDefaults::open(path, UserDefaults::Access::readOnly);
  expectOldKeys(*store);
  expectNewKeys(*store);
  EXPECT_EQ(store->opening().outcome, Outcome::restored);
  EXPECT_EQ(filesIn(folder), before);
}

}  // namespace
}  // namespace foundation
