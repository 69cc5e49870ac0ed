// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreFixture.hpp"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace foundation {
namespace {

class StorePrivacy : public StoreTest {};

TEST_F(StorePrivacy, FilesArePrivateWhateverTheUmask) {
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

TEST_F(StorePrivacy, LinksPipesAndOthersFilesAreRefused) {
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

TEST_F(StorePrivacy, LinksNextToTheFileAreNotFollowed) {
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
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove(entry);
  }
}

}  // namespace
}  // namespace foundation
