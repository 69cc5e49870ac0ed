// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "QEVSettings/preferences/HostIdentity.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "StoreDamage.hpp"
#include "WaitingChild.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <algorithm>
#include <set>

namespace foundation {
namespace {

using QEVSettings::PreferenceValue;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;
using Kind = RememberedValue::Kind;

RememberedValue kept(PreferenceValue value) {
  return {.kind = Kind::kept, .value = std::move(value)};
}

// The keys of the history and what they held before and after, the newest change first.
MATCHER_P3(IsChange, key, before, after, "") {
  return arg.key == key && arg.before == RememberedValue(before) &&
         arg.after == RememberedValue(after);
}

class StoreHistory : public DamagedStoreTest {
protected:
  static std::vector<RememberedChange> historyOf(const UserDefaults& store,
                                                 std::string_view key = {}) {
    auto history = store.history(key);
    if (!history) ADD_FAILURE() << history.error().message;
    return history ? *std::move(history) : std::vector<RememberedChange>();
  }

  void execute(const std::string& statements) const {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, statements.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database);
    sqlite3_close(database);
  }

  std::int64_t countOf(const std::string& query) const {
    sqlite3* database = nullptr;
    sqlite3_stmt* statement = nullptr;
    sqlite3_open(path.c_str(), &database);
    sqlite3_prepare_v2(database, query.c_str(), -1, &statement, nullptr);
    const auto count = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0)
                                                             : std::int64_t{-1};
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return count;
  }
};

TEST_F(StoreHistory, EachChangeIsRememberedWithBothValuesTimeAndProgram) {
  QEVSettings::HostIdentity::set({.id = "analyzer", .version = "3.2.1"});
  const auto begin = std::chrono::system_clock::now() - std::chrono::milliseconds(1);
  const auto store = open();
  store->setInteger(1, "a");
  store->setObject(PreferenceValue::Array{"x", 2.5}, "a");
  store->setObject("text", "b");
  store->setObject("text", "b");  // no change
  store->removeObject("a");
  store->removeObject("missing");
  const auto history = historyOf(*store);
  const auto list = kept(PreferenceValue::Array{"x", 2.5});
  EXPECT_THAT(history,
              ElementsAre(IsChange("a", list, RememberedValue()),
                          IsChange("b", RememberedValue(), kept("text")),
                          IsChange("a", kept(1), list), IsChange("a", RememberedValue(), kept(1))));
  for (const RememberedChange& change : history) {
    EXPECT_EQ(change.program, "analyzer 3.2.1");
    EXPECT_GE(change.time, begin);
    EXPECT_LE(change.time, std::chrono::system_clock::now());
  }
  EXPECT_TRUE(history[0].isInForce);
  EXPECT_TRUE(history[1].isInForce);
  EXPECT_FALSE(history[2].isInForce);
  EXPECT_THAT(historyOf(*store, "b"), SizeIs(1));
  EXPECT_THAT(historyOf(*store, "missing"), IsEmpty());
  QEVSettings::HostIdentity::set({});
}

TEST_F(StoreHistory, ItOutlivesTheProcessAndIsReadWithoutWriting) {
  {
    const auto store = open();
    ASSERT_TRUE(store->applyChanges({{"a", 1}, {"b", "text"}}));
    ASSERT_TRUE(store->applyChanges({{"a", std::nullopt}, {"b", "other"}}));
  }
  const auto before = filesIn(folder);
  {
    const auto store = UserDefaults::open(path, UserDefaults::Access::readOnly);
    const auto history = historyOf(*store);
    EXPECT_THAT(history, UnorderedElementsAre(IsChange("b", kept("text"), kept("other")),
                                              IsChange("a", kept(1), RememberedValue()),
                                              IsChange("b", RememberedValue(), kept("text")),
                                              IsChange("a", RememberedValue(), kept(1))));
    EXPECT_EQ(history[0].time, history[1].time);
    EXPECT_GT(history[0].number, history[1].number);
    EXPECT_TRUE(history[0].isInForce);
  }
  EXPECT_EQ(filesIn(folder), before);
  EXPECT_THAT(historyOf(*UserDefaults::inMemory()), IsEmpty());
}

TEST_F(StoreHistory, LargeValuesAreRememberedBySizeAndSecretsNotAtAll) {
  const auto store = open();
  store->setHistoryRules({.isSecret = [](std::string_view key) { return key == "password"; }});
  store->setObject(std::string(kMostRememberedBytes, 'x'), "fits");
  store->setObject(PreferenceValue::Bytes(kMostRememberedBytes + 1, 7), "large");
  store->setObject("hunter2", "password");
  store->setObject("hunter3", "password");
  store->setInteger(1, std::string(kMostRememberedBytes + 1, 'k'));
  const RememberedValue secret{.kind = Kind::secret};
  const RememberedValue large{.kind = Kind::tooLarge, .bytes = kMostRememberedBytes + 1};
  EXPECT_THAT(
      historyOf(*store),
      ElementsAre(
          IsChange("password", secret, secret), IsChange("password", RememberedValue(), secret),
          IsChange("large", RememberedValue(), large),
          IsChange("fits", RememberedValue(), kept(std::string(kMostRememberedBytes, 'x')))));
  EXPECT_EQ(countOf("SELECT count(*) FROM history WHERE CAST(before AS BLOB) = x'68756e74657232'"),
            0);
}

TEST_F(StoreHistory, OldestChangesAreForgottenByNumberAndByAge) {
  {
    const auto store = open();
    for (int i = 0; i < 1'200; ++i) store->setInteger(i, "key");
    const auto history = historyOf(*store);
    ASSERT_THAT(history, SizeIs(kMostRememberedChanges));
    EXPECT_EQ(history.front().after, kept(1'199));
    EXPECT_EQ(history.back().after, kept(200));
  }
  EXPECT_LT(countOf("SELECT count(*) FROM history"), 1'100);
  {
    const auto store = open();
    QEVSettings::PreferenceDictionary many;
    for (int i = 0; i < 3'000; ++i) many.emplace("many " + std::to_string(i), i);
    ASSERT_TRUE(store->applyAll(many));
    EXPECT_THAT(historyOf(*store), SizeIs(kMostRememberedChanges));
  }
  // As if 91 days had passed.
  const auto age = std::to_string(std::chrono::milliseconds(std::chrono::days(91)).count());
  execute("UPDATE history SET time = time - " + age);
  EXPECT_THAT(historyOf(*open()), IsEmpty());
  open()->setInteger(-1, "key");
  EXPECT_EQ(countOf("SELECT count(*) FROM history"), 1);
}

TEST_F(StoreHistory, ItIsOffByAKeyOrARuleAndThenEmpty) {
  const std::string key(QEVSettings::kKeepsHistory.name);
  {
    const auto store = open();
    store->setObject("remember me", "a");
    store->setBool(false, key);
    EXPECT_THAT(historyOf(*store), IsEmpty());
    store->setObject("forget me", "a");
    EXPECT_THAT(historyOf(*store), IsEmpty());
  }
  EXPECT_EQ(contentsOf(path).find("remember me"), std::string::npos);
  {
    const auto store = open();
    store->setBool(true, key);
    EXPECT_THAT(historyOf(*store), ElementsAre(IsChange(key, kept(false), kept(true))));
    store->setHistoryRules({.isKept = [] { return false; }});
    store->setObject("by rule", "a");
    EXPECT_THAT(historyOf(*store), IsEmpty());
    store->setHistoryRules({});
    store->setObject("again", "a");
    EXPECT_THAT(historyOf(*store), ElementsAre(IsChange("a", kept("by rule"), kept("again"))));
  }
}

TEST_F(StoreHistory, StoreWithoutTheTableIsOpenedAndGetsItWithTheFirstChange) {
  {
    const auto store = open();
    store->setInteger(1, "a");
  }
  execute("DROP TABLE history");
  EXPECT_THAT(historyOf(*UserDefaults::open(path, UserDefaults::Access::readOnly)), IsEmpty());
  const auto store = open();
  EXPECT_EQ(store->opening().outcome, QEVSettings::StoreOpening::Outcome::opened);
  EXPECT_THAT(historyOf(*store), IsEmpty());
  EXPECT_EQ(countOf("SELECT count(*) FROM sqlite_schema WHERE name = 'history'"), 0);
  store->setInteger(2, "a");
  EXPECT_THAT(historyOf(*store), ElementsAre(IsChange("a", kept(1), kept(2))));
}

// A program that does not know the table changes only the other one.
TEST_F(StoreHistory, ChangeThatIsNotRememberedIsNotInForce) {
  open()->setInteger(1, "a");
  const auto withoutHistory = countOf("SELECT change FROM history");
  open()->setInteger(2, "a");
  execute("DELETE FROM history WHERE change > " + std::to_string(withoutHistory));
  const auto store = open();
  EXPECT_EQ(store->integerForKey("a"), 2);
  const auto history = historyOf(*store);
  ASSERT_THAT(history, ElementsAre(IsChange("a", RememberedValue(), kept(1))));
  EXPECT_FALSE(history.front().isInForce);
  store->setInteger(1, "a");
  EXPECT_THAT(historyOf(*store).front(), IsChange("a", kept(2), kept(1)));
  EXPECT_TRUE(historyOf(*store).front().isInForce);
}

TEST_F(StoreHistory, AnotherTableOrIndexInItsPlaceNeverStopsAWrite) {
  const std::pair<const char*, const char*> others[] = {
      {"CREATE TABLE history (line TEXT)", "DROP TABLE history"},
      {"CREATE INDEX history ON preferences (type)", "DROP INDEX history"}};
  for (const auto& [create, drop] : others) {
    SCOPED_TRACE(create);
    open()->setInteger(1, "a");
    execute("DROP TABLE IF EXISTS history; " + std::string(create));
    {
      const auto store = open();
      store->setInteger(2, "a");
      EXPECT_EQ(store->status(), std::nullopt);
      EXPECT_THAT(historyOf(*store), IsEmpty());
    }
    EXPECT_EQ(open()->integerForKey("a"), 2);
    execute(drop);
  }
}

TEST_F(StoreHistory, RowThatWasChangedOnDiskIsLeftOut) {
  {
    const auto store = open();
    store->setObject("genuine", "a");
    store->setObject("other", "b");
  }
  execute("UPDATE history SET after = 'forged' WHERE key = CAST('a' AS BLOB)");
  const auto store = open();
  EXPECT_THAT(historyOf(*store), ElementsAre(IsChange("b", RememberedValue(), kept("other"))));
  EXPECT_EQ(store->stringForKey("a"), "genuine");
}

TEST_F(StoreHistory, DamagedHistoryCostsNoSetting) {
  makeGoodCopy();
  open()->setInteger(5, "last");
  const auto values = open()->dictionaryRepresentation();
  const auto root = countOf("SELECT rootpage FROM sqlite_schema WHERE name = 'history'");
  ASSERT_GT(root, 1);
  const std::string garbage(kPage, '\xA5');
  overwriteAt(path, (static_cast<std::size_t>(root) - 1) * kPage, garbage);
  {
    const auto store = open();
    EXPECT_EQ(store->dictionaryRepresentation(), values);
    store->setInteger(6, "after");
    EXPECT_EQ(store->status(), std::nullopt);
    EXPECT_EQ(store->opening().outcome, QEVSettings::StoreOpening::Outcome::restored);
    EXPECT_EQ(store->opening().lostKeys, 0U);
    EXPECT_EQ(historyOf(*store).front().key, "after");
  }
  const auto store = open();
  auto expected = values;
  expected.emplace("after", 6);
  EXPECT_EQ(store->dictionaryRepresentation(), expected);
  EXPECT_TRUE(verifyPreferences(path).isGood);
}

TEST_F(StoreHistory, EightWritersGiveEachChangeItsOwnNumberAndWakeAnObserverOnceForEach) {
  constexpr int writers = 8;
  constexpr int writes = 20;
  std::vector<WaitingChild> children;
  children.reserve(writers);
  for (int writer = 0; writer < writers; ++writer) {
    children.emplace_back([&, writer] {
      const auto store = open();
      for (int i = 0; i < writes; ++i)
        store->setInteger(i, std::to_string(writer) + " " + std::to_string(i));
      return store->status() ? 1 : 0;
    });
  }
  const auto store = open();
  std::vector<std::string> heard;
  const auto all = store->observeAll([&](std::string_view key) { heard.emplace_back(key); });
  for (const WaitingChild& child : children) child.start();
  constexpr std::size_t changes = std::size_t{writers} * writes;
  EXPECT_TRUE(waitUntil([&] { return heard.size() >= changes; }));
  for (WaitingChild& child : children) EXPECT_EQ(child.wait(), 0);
  MainQueue::mainQueue().drainAll();
  EXPECT_THAT(heard, SizeIs(changes));
  std::set<std::int64_t> numbers;
  std::set<std::string> keys;
  for (const RememberedChange& change : historyOf(*store)) {
    numbers.insert(change.number);
    keys.insert(change.key);
    EXPECT_TRUE(change.isInForce);
  }
  EXPECT_THAT(numbers, SizeIs(changes));
  EXPECT_THAT(keys, SizeIs(changes));
}

TEST_F(StoreHistory, KilledWriterLeavesStoreAndHistoryInAgreement) {
  for (int round = 0; round < runs(15, 200); ++round) {
    const Child writer([&] {
      const auto store = open();
      for (int i = 0;; ++i) {
        static_cast<void>(store->applyChanges({{"a", i}, {"b", std::to_string(i)}}));
        if (i % 3 == 0) store->removeObject("a");
      }
      return 0;
    });
    ::usleep(static_cast<useconds_t>(2'000 + round * 900));
    writer.kill();
    const auto store = open();
    ASSERT_EQ(store->status(), std::nullopt);
    for (const std::string key : {"a", "b"}) {
      const auto history = historyOf(*store, key);
      if (history.empty()) continue;
      EXPECT_TRUE(history.front().isInForce);
      EXPECT_EQ(history.front().after.value, store->objectForKey(key));
      for (std::size_t i = 1; i < history.size(); ++i)
        ASSERT_EQ(history[i - 1].before, history[i].after);
    }
  }
  EXPECT_THAT(said, IsEmpty());
}

}  // namespace
}  // namespace foundation
