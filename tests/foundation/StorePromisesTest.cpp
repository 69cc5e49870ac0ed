#include "StoreFixture.hpp"
#include "foundation/PreferencesVerification.hpp"
#include "foundation/Unicode.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <map>
#include <random>

namespace foundation {
namespace {

using QEVSettings::PreferenceValue;
using QEVSettings::Subscription;
using testing::Each;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class Promises : public StoreTest {};

// The full runs take minutes: scripts/test --soak.
int runs(int usual, int soak) { return std::getenv("QEV_SOAK") != nullptr ? soak : usual; }

std::string contentsOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void overwrite(const std::filesystem::path& path, std::string_view contents) {
  std::ofstream(path, std::ios::binary | std::ios::trunc) << contents;
}

bool execute(const std::filesystem::path& path, const char* statements) {
  sqlite3* database = nullptr;
  const bool isDone = sqlite3_open(path.c_str(), &database) == SQLITE_OK &&
                      sqlite3_exec(database, statements, nullptr, nullptr, nullptr) == SQLITE_OK;
  sqlite3_close(database);
  return isDone;
}

// Nobody in particular, so that permissions count even when the tests run as root.
void loseRootIn(const std::filesystem::path& folder) {
  constexpr uid_t nobody = 65534;
  if (::geteuid() != 0) return;
  if (::chown(folder.c_str(), nobody, nobody) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0) ::_exit(99);
}

TEST_F(Promises, AnotherProcessIsHeardWithoutReading) {
  open()->setInteger(1, "before");
  std::array<int, 2> pipe{};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  Child writer([&] {
    char go = 0;
    if (::read(pipe[0], &go, 1) != 1) return 1;
    const auto store = open();
    store->setObject("new", "added");
    store->removeObject("before");
    return store->status() ? 1 : 0;
  });
  const auto store = open();
  std::vector<std::string> heard;
  const Subscription all = store->observeAll([&](std::string_view key) { heard.emplace_back(key); });
  ASSERT_EQ(::write(pipe[1], "!", 1), 1);
  EXPECT_TRUE(waitUntil([&] { return heard.size() == 2; }));
  EXPECT_THAT(heard, testing::ElementsAre("added", "before"));
  EXPECT_EQ(store->stringForKey("added"), "new");
  EXPECT_EQ(writer.wait(), 0);
  ::close(pipe[0]);
  ::close(pipe[1]);
}

TEST_F(Promises, WhatWasAcknowledgedSurvivesBeingKilled) {
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
    while (::read(pipe[0], &last, sizeof last) == sizeof last) acknowledged["key " + std::to_string(last % 7)] = last;
    ::close(pipe[0]);
    next = last + 2;  // the one after the last may have been written too
    const auto store = open();
    ASSERT_EQ(store->status(), std::nullopt);
    for (auto& [key, value] : acknowledged) {
      const std::int64_t stored = store->integerForKey(key);
      ASSERT_TRUE(stored == value || stored == last + 1) << key << " is " << stored << ", not " << value;
      value = stored;
    }
  }
  EXPECT_THAT(said, IsEmpty());
}

// What was not on disk yet is cut off the log, or is there in part, with something else behind it.
TEST_F(Promises, APowerCutTakesOnlyTheLastWrites) {
  Child writer([&] {
    const auto store = open();
    for (int i = 0; i < 60; ++i) store->setInteger(i, "key " + std::to_string(i));
    return ::kill(::getpid(), SIGKILL);
  });
  ASSERT_EQ(writer.wait(), -1);
  const std::string log = contentsOf(path.string() + "-wal");
  std::size_t kept = 0;
  for (std::size_t length = 0; length <= log.size(); length += 1 + log.size() / 50) {
    for (const bool isFollowedByOther : {false, true}) {
      SCOPED_TRACE(length);
      std::filesystem::remove(path.string() + "-shm");
      overwrite(path.string() + "-wal", log.substr(0, length) + (isFollowedByOther ? std::string(9000, '\xA5') : ""));
      Child reader([&] {
        const auto store = open();
        const auto values = store->dictionaryRepresentation();
        for (std::size_t i = 0; i < values.size(); ++i) {
          if (store->objectForKey("key " + std::to_string(i)) != PreferenceValue(static_cast<int>(i))) return 100;
        }
        if (store->status() || !said.empty()) return 101;
        // The file proper is left as the power cut left it.
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

TEST_F(Promises, EightProcessesLoseNothing) {
  constexpr int writers = 8;
  const int writes = runs(25, 500);
  std::vector<Child> children;
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

TEST_F(Promises, AStuckProcessBlocksNobody) {
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

TEST_F(Promises, ADamagedFileIsSetAsideForItsGoodCopy) {
  const PreferenceValue text = std::string(20'000, 'x');
  struct Case {
    const char* name;
    std::function<void(const std::string& intact)> damage;
  };
  const Case cases[] = {
      {"empty", [&](const std::string&) { overwrite(path, ""); }},
      {"truncated", [&](const std::string& intact) { overwrite(path, intact.substr(0, intact.size() / 2)); }},
      {"foreign text", [&](const std::string&) { overwrite(path, std::string(5000, '#')); }},
      {"foreign database",
       [&](const std::string&) {
         overwrite(path, "");
         ASSERT_TRUE(execute(path, "CREATE TABLE other (a); INSERT INTO other VALUES (1)"));
       }},
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
    for (const char* ending : {"-wal", "-shm"}) ASSERT_FALSE(std::filesystem::exists(path.string() + ending));
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
      EXPECT_THAT(said, SizeIs(1));
      EXPECT_THAT(said, Each(HasSubstr(".damaged-")));
      EXPECT_THAT(said, Each(Not(HasSubstr("SECRET"))));
      store->setInteger(2, "number");
    }
    EXPECT_EQ(open()->integerForKey("number"), 2);
    const auto verification = verifyPreferences(path);
    EXPECT_TRUE(verification.isGood);
    EXPECT_THAT(verification.sentences, testing::ElementsAre(HasSubstr("in order: 3 keys"),
                                                             HasSubstr("in order: 3 keys"), HasSubstr("set aside")));
    std::vector<std::string> kept;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.path().string().find(".damaged-") != std::string::npos) kept.push_back(contentsOf(entry.path()));
    }
    EXPECT_EQ(kept, std::vector<std::string>{damaged});
  }
}

TEST_F(Promises, ADamagedFileWithoutAGoodCopyLeavesAnEmptyStore) {
  overwrite(path, "no database at all, and long enough to be read as one: " + std::string(4096, '.'));
  const auto store = open();
  EXPECT_THAT(store->dictionaryRepresentation(), IsEmpty());
  EXPECT_THAT(said, SizeIs(1));
  store->setInteger(1, "key");
  EXPECT_EQ(store->status(), std::nullopt);
  EXPECT_EQ(open()->integerForKey("key"), 1);
}

TEST_F(Promises, ADamagedGoodCopyIsSetAsideToo) {
  { open()->setInteger(1, "key"); }
  for (const char* ending : {"", ".good"}) overwrite(path.string() + ending, std::string(5000, '#'));
  const auto store = open();
  EXPECT_THAT(store->dictionaryRepresentation(), IsEmpty());
  EXPECT_EQ(store->status(), std::nullopt);
  EXPECT_THAT(said, testing::ElementsAre(HasSubstr("its copy is damaged too")));
  store->setInteger(2, "key");
  EXPECT_EQ(open()->integerForKey("key"), 2);
}

TEST_F(Promises, AFileThatVanishesIsWrittenAnew) {
  const auto store = open();
  store->setInteger(1, "old");
  for (const char* ending : {"", "-wal", "-shm"}) std::filesystem::remove(path.string() + ending);
  store->setInteger(2, "new");
  const auto other = open();
  EXPECT_EQ(other->integerForKey("old"), 1);
  EXPECT_EQ(other->integerForKey("new"), 2);
}

TEST_F(Promises, AReadOnlyStoreGoesOnInMemory) {
  Child child([&] {
    loseRootIn(folder);
    { open()->setInteger(1, "key"); }
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    const auto store = open();
    store->setInteger(store->integerForKey("key") + 1, "key");
    store->setInteger(3, "other");
    if (store->integerForKey("key") != 2 || !store->status() || store->synchronize() || said.size() != 1) return 1;
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
    std::filesystem::permissions(path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    if (!waitUntil([&] { return !store->status(); })) return 2;
    const auto other = open();
    return other->integerForKey("key") == 2 && other->integerForKey("other") == 3 && store->synchronize() ? 0 : 3;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(Promises, AReadOnlyFolderWithALeftoverLogIsReadToItsEnd) {
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

TEST_F(Promises, AFullDiskIsWaitedFor) {
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

TEST_F(Promises, AFolderInPlaceOfTheFileIsWaitedFor) {
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

TEST_F(Promises, AFileThatMayNotBeReadIsWaitedFor) {
  Child child([&] {
    loseRootIn(folder);
    { open()->setInteger(1, "old"); }
    std::filesystem::permissions(path, std::filesystem::perms::none);
    const auto store = open();
    store->setInteger(2, "new");
    if (store->integerForKey("new") != 2 || !store->status() || said.size() != 1) return 1;
    std::filesystem::permissions(path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    if (!waitUntil([&] { return !store->status(); })) return 2;
    const auto other = open();
    return store->integerForKey("old") == 1 && other->integerForKey("old") == 1 && other->integerForKey("new") == 2 ? 0
                                                                                                                    : 3;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(Promises, ARefusedWriteIsTriedAgainLessAndLessOften) {
  using Clock = std::chrono::steady_clock;
  std::filesystem::create_directories(path);
  const auto store = open();
  std::vector<Clock::time_point> turns{Clock::now()};
  store->setInteger(1, "key");
  // Nothing but another try wakes the main queue, for nothing changes in the folder.
  while (turns.size() < 4) {
    ASSERT_TRUE(MainQueue::mainQueue().wait(std::chrono::seconds(20)));
    MainQueue::mainQueue().drain();
    turns.push_back(Clock::now());
  }
  for (std::size_t i = 1; i < turns.size(); ++i) {
    EXPECT_GE(turns[i] - turns[i - 1], std::chrono::milliseconds(250) * (1 << (i - 1))) << i;
  }
  EXPECT_TRUE(store->status());
  EXPECT_THAT(said, SizeIs(1));
}

TEST_F(Promises, WithoutAHomeItGoesOnInMemory) {
  Child child([&] {
    constexpr uid_t unknown = 54321;
    ::unsetenv("HOME");
    ::unsetenv("XDG_CONFIG_HOME");
    if (::geteuid() == 0 && ::setuid(unknown) != 0) return 1;
    if (::getuid() != unknown) return 0;  // somebody, who has a home
    UserDefaults& store = UserDefaults::standardUserDefaults();
    store.setInteger(1, "key");
    return UserDefaults::standardFile().empty() && store.status() && store.integerForKey("key") == 1 ? 0 : 2;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(Promises, IsPrivateWhateverTheUmask) {
  for (const mode_t mask : {mode_t{0}, mode_t{0777}}) {
    const mode_t before = ::umask(mask);
    const auto nested = folder / std::to_string(mask) / "inner";
    {
      const auto store = UserDefaults::open(nested / "store");
      store->setInteger(1, "key");
      EXPECT_EQ(store->status(), std::nullopt);
    }
    ::umask(before);
    struct stat found {};
    ASSERT_EQ(::stat(nested.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, mode_t{0700});
    for (const auto& entry : std::filesystem::directory_iterator(nested)) {
      ASSERT_EQ(::stat(entry.path().c_str(), &found), 0);
      EXPECT_EQ(found.st_mode & 077, mode_t{0}) << entry.path();
    }
  }
  overwrite(path, "");
  std::filesystem::permissions(path, std::filesystem::perms(0644));
  open()->setInteger(1, "key");
  EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0600));
}

TEST_F(Promises, RefusesLinksPipesAndOthersFiles) {
  const auto elsewhere = folder / "elsewhere";
  overwrite(elsewhere, "not ours");
  std::filesystem::create_symlink(elsewhere, path);
  for (int round = 0; round < 2; ++round) {
    const auto store = open();
    store->setInteger(1, "key");
    EXPECT_TRUE(store->status()) << round;
    EXPECT_EQ(contentsOf(elsewhere), "not ours");
    std::filesystem::remove(path);
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
  }
  std::filesystem::remove(path);
  Child child([&] {
    if (::geteuid() != 0) return 0;  // nobody else's files to be had
    { open()->setInteger(1, "key"); }
    if (::chown(path.c_str(), 1, 1) != 0) return 1;
    const auto store = open();
    return store->status() && !store->objectForKey("key") ? 0 : 2;
  });
  EXPECT_EQ(child.wait(), 0);
}

TEST_F(Promises, LinksPlantedNextToTheFileLeadNowhere) {
  const auto elsewhere = folder / "elsewhere";
  for (const char* ending : {"-wal", "-shm", ".good", ".lock", ".copy", ".restored"}) {
    SCOPED_TRACE(ending);
    overwrite(elsewhere, "not ours");
    std::filesystem::create_symlink(elsewhere, path.string() + ending);
    {
      const auto store = open();
      store->setInteger(1, "key");
      EXPECT_EQ(store->integerForKey("key"), 1);
    }
    EXPECT_EQ(contentsOf(elsewhere), "not ours");
    for (const auto& entry : std::filesystem::directory_iterator(folder)) std::filesystem::remove(entry);
  }
}

TEST_F(Promises, HoldsWhatIsLargeAndRefusesWhatIsTooLarge) {
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
    for (char32_t plane = 0; plane < planes; ++plane) many.emplace(keyInPlane(plane), static_cast<int>(plane));
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
  store->setObject(std::string(999'000'001, 'x'), "too large");
  EXPECT_TRUE(store->status());
  EXPECT_FALSE(store->objectForKey("too large"));
}

}  // namespace
}  // namespace foundation
