// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "QEVSettings/preferences/HostIdentity.hpp"
#include "StoreFixture.hpp"

#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/stat.h>

#include <functional>

namespace foundation {
namespace {

using testing::HasSubstr;
using Access = UserDefaults::Access;
using Outcome = QEVSettings::StoreOpening::Outcome;
using QEVSettings::StorageProblem;

class StoreForeignFiles : public StoreTest {};

sqlite3* anotherProgramsDatabase(const std::filesystem::path& path) {
  sqlite3* database = nullptr;
  sqlite3_open(path.c_str(), &database);
  sqlite3_exec(database,
               "PRAGMA journal_mode = WAL; CREATE TABLE theirs (a); INSERT INTO theirs VALUES (1)",
               nullptr, nullptr, nullptr);
  return database;
}

TEST_F(StoreForeignFiles, ForeignFileIsNotChanged) {
  struct Case {
    const char* name;
    std::function<void()> make;
    const char* description;
  };
  sqlite3* theirs = nullptr;
  const Case cases[] = {
      {"text", [&] { overwrite(path, "My thesis\n" + std::string(5000, '.')); }, "is a text file"},
      {"short text", [&] { overwrite(path, "a"); }, "is a text file"},
      {"bytes", [&] { overwrite(path, std::string(5000, '\x01')); },
       "is a file of another program"},
      {"open database", [&] { theirs = anotherProgramsDatabase(path); },
       "is a database of another program"},
      {"database next to our good copy",
       [&] {
         { open()->setInteger(1, "key"); }
         std::filesystem::remove(path);
         theirs = anotherProgramsDatabase(path);
       },
       "is a database of another program"},
  };
  for (const auto& [name, make, description] : cases) {
    for (const Access access : {Access::readOnly, Access::readWrite}) {
      SCOPED_TRACE(name);
      for (const auto& entry : std::filesystem::directory_iterator(folder))
        std::filesystem::remove(entry);
      make();
      std::filesystem::permissions(path, std::filesystem::perms(0644));
      const auto before = filesIn(folder);
      said.clear();
      {
        const auto store = UserDefaults::open(path, access);
        store->setInteger(7, "key");
        EXPECT_EQ(store->integerForKey("key"), 7);
        EXPECT_EQ(store->opening().outcome, Outcome::inMemory);
        EXPECT_THAT(store->opening().message, HasSubstr(description));
        EXPECT_EQ(store->storageProblem(), StorageProblem::unusable);
        EXPECT_TRUE(store->status());
        EXPECT_THAT(said, testing::SizeIs(1));
      }
      EXPECT_EQ(filesIn(folder), before);
      sqlite3_close(std::exchange(theirs, nullptr));
    }
  }
}

TEST_F(StoreForeignFiles, ReadOnlyOpeningChangesNothingOnDisk) {
  {
    const auto store = UserDefaults::open(folder / "none" / "missing", Access::readOnly);
    EXPECT_EQ(store->storageProblem(), StorageProblem::noFile);
    ASSERT_TRUE(store->status());
    EXPECT_THAT(store->status()->message, HasSubstr("there is no store at"));
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder));
  // A writer has the store open, so that its write is in the log.
  const auto writer = open();
  writer->setInteger(1, "key");
  const auto before = filesIn(folder);
  {
    const auto store = UserDefaults::open(path, Access::readOnly);
    EXPECT_EQ(store->integerForKey("key"), 1);
    EXPECT_EQ(store->opening().outcome, Outcome::opened);
    EXPECT_EQ(store->status(), std::nullopt);
    store->setInteger(2, "key");
    EXPECT_EQ(store->integerForKey("key"), 2);
  }
  EXPECT_EQ(filesIn(folder), before);
  EXPECT_EQ(writer->integerForKey("key"), 1);
}

TEST_F(StoreForeignFiles, OthersFilesNextToTheStoreAreRefused) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can give files to others";
  for (const char* ending : {"-wal", "-shm", "-journal"}) {
    SCOPED_TRACE(ending);
    { open()->setInteger(1, "key"); }
    const std::string planted = path.string() + ending;
    overwrite(planted, "theirs");
    ASSERT_EQ(::chown(planted.c_str(), 1, 1), 0);
    const auto before = filesIn(folder);
    {
      const auto store = open();
      EXPECT_THAT(store->opening().message, HasSubstr("belongs to another user"));
      EXPECT_EQ(store->storageProblem(), StorageProblem::unusable);
      store->setInteger(2, "key");
    }
    EXPECT_EQ(filesIn(folder), before);
    std::filesystem::remove(planted);
    EXPECT_EQ(open()->integerForKey("key"), 1);
  }
}

TEST_F(StoreForeignFiles, FolderThatIsALinkKeepsTheModeOfItsTarget) {
  const auto target = folder / "target";
  std::filesystem::create_directory(target);
  std::filesystem::permissions(target, std::filesystem::perms(0755));
  std::filesystem::create_directory_symlink(target, folder / "zorvantine");
  Child child([&] {
    ::setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
    QEVSettings::HostIdentity::set({.id = "zorvantine"});
    UserDefaults::standardUserDefaults().setInteger(1, "key");
    return UserDefaults::standardUserDefaults().status() ? 1 : 0;
  });
  EXPECT_EQ(child.wait(), 0);
  EXPECT_EQ(std::filesystem::status(target).permissions(), std::filesystem::perms(0755));
  EXPECT_TRUE(std::filesystem::exists(target / "preferences.sqlite"));
}

TEST_F(StoreForeignFiles, OpeningIsKnownForAsLongAsTheStoreIsOpen) {
  {
    const auto store = open();
    EXPECT_EQ(store->opening().outcome, Outcome::created);
    store->setInteger(1, "key");
  }
  const auto store = open();
  EXPECT_EQ(store->opening().outcome, Outcome::opened);
  EXPECT_EQ(store->storageProblem(), std::nullopt);
  const auto copy = store->copyInMemory();
  copy->setInteger(2, "key");
  EXPECT_EQ(store->integerForKey("key"), 1);
  // A folder in the file's place is a problem until it is gone.
  std::vector<std::optional<StorageProblem>> heard;
  const auto observer = store->observeStorage([&] { heard.push_back(store->storageProblem()); });
  std::filesystem::remove(path);
  std::filesystem::create_directory(path);
  store->setInteger(3, "key");
  EXPECT_TRUE(waitUntil([&] { return heard.size() == 1; }));
  std::filesystem::remove(path);
  EXPECT_TRUE(waitUntil([&] { return heard.size() > 1 && !heard.back(); }));
  EXPECT_EQ(open()->integerForKey("key"), 3);
}

}  // namespace
}  // namespace foundation
