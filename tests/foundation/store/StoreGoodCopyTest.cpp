// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreDamage.hpp"

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>

namespace foundation {
namespace {

class StoreGoodCopy : public DamagedStoreTest {
protected:
  std::unique_ptr<UserDefaults> openCopy() const {
    return UserDefaults::open(goodCopy(), UserDefaults::Access::readOnly);
  }
};

TEST_F(StoreGoodCopy, CopyIsRefreshedAtEachClose) {
  { open()->setObject(std::string(3'000'000, 'x'), "large"); }
  for (int i = 1; i <= 3; ++i) {
    SCOPED_TRACE(i);
    // A clock that went back leaves a date in the future.
    std::filesystem::last_write_time(
        goodCopy(), std::filesystem::file_time_type::clock::now() + std::chrono::hours(9));
    { open()->setInteger(i, "key"); }
    EXPECT_EQ(openCopy()->integerForKey("key"), i);
  }
}

TEST_F(StoreGoodCopy, CopyIsLeftAloneWhenNothingChanged) {
  { open()->setInteger(1, "key"); }
  const auto before = std::filesystem::last_write_time(goodCopy());
  { EXPECT_EQ(open()->integerForKey("key"), 1); }
  EXPECT_EQ(std::filesystem::last_write_time(goodCopy()), before);
}

TEST_F(StoreGoodCopy, LeftoversOfAKillAreCleared) {
  { open()->setInteger(1, "key"); }
  for (const char* ending : {".copy", ".copy-journal", ".new"})
    overwrite(path.string() + ending, "half");
  { open()->setInteger(2, "key"); }
  for (const char* ending : {".copy", ".copy-journal", ".new"}) {
    EXPECT_FALSE(std::filesystem::exists(path.string() + ending)) << ending;
  }
  EXPECT_EQ(openCopy()->integerForKey("key"), 2);
}

TEST_F(StoreGoodCopy, CopyIsMadeUnderAnyUmask) {
  for (const mode_t mask : {mode_t{0277}, mode_t{0777}}) {
    Child child([&] {
      loseRootIn(scratch.path());
      ::umask(mask);
      for (int i = 1; i <= 2; ++i) {
        {
          open()->setInteger(i, "key");
        }
        if (openCopy()->integerForKey("key") != i) return i;
      }
      return 0;
    });
    EXPECT_EQ(child.wait(), 0) << mask;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove(entry);
  }
}

TEST_F(StoreGoodCopy, CopyIsNotReplacedByAStoreThatHoldsLess) {
  makeGoodCopy();
  const auto store = open();
  store->setInteger(1, "new");
  {
    // A row vanishes, index entry and all, without leaving a trace.
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, "DELETE FROM preferences WHERE key = x'6f6c642035'", nullptr,
                           nullptr, nullptr),
              SQLITE_OK);
    sqlite3_close(database);
  }
  EXPECT_THAT(said, testing::IsEmpty());
  { EXPECT_TRUE(open()->objectForKey("old 6")); }
  EXPECT_THAT(said, testing::ElementsAre(testing::HasSubstr("were recovered")));
  EXPECT_EQ(openCopy()->stringForKey("old 5"), oldValue(5));
  EXPECT_EQ(openCopy()->integerForKey("new"), 1);
  EXPECT_EQ(open()->stringForKey("old 5"), oldValue(5));
}

}  // namespace
}  // namespace foundation
