// SPDX-License-Identifier: MIT
#pragma once

#include "Child.hpp"
#include "StoreFixture.hpp"

#include <map>
#include <string>

namespace foundation {

inline constexpr std::size_t kPage = 4096;

// Replaces bytes of a file in place, so that the file keeps its identity.
inline void overwriteAt(const std::filesystem::path& path, std::size_t offset,
                        std::string_view bytes) {
  std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
  file.seekp(static_cast<std::streamoff>(offset));
  file << bytes;
}

// Where the first pages with rows of the preferences begin, in a file with several of them: the
// table's root is the second page, and names the others.
inline std::vector<std::size_t> pagesWithRows(const std::string& file) {
  const auto number = [&](std::size_t at, int bytes) {
    std::size_t number = 0;
    for (int i = 0; i < bytes; ++i)
      number = number << 8 | static_cast<unsigned char>(file.at(at++));
    return number;
  };
  std::vector<std::size_t> pages;
  for (std::size_t i = 0; i < number(kPage + 3, 2); ++i)
    pages.push_back((number(kPage + number(kPage + 12 + 2 * i, 2), 4) - 1) * kPage);
  return pages;
}

// A store that has a good copy and, after a kill, newer changes in its log.
class DamagedStoreTest : public StoreTest {
protected:
  using StoreTest::StoreTest;

  // In the good copy: "old 0" to "old 39" of some 200 bytes each, "long" of 20,000.
  void makeGoodCopy() const {
    const auto store = open();
    for (int i = 0; i < 40; ++i) store->setObject(oldValue(i), "old " + std::to_string(i));
    store->setObject(std::string(20'000, 'x'), "long");
  }
  // Only in the log: "new 0" to "new 9", and another value of "old 0".
  void writeWithoutCopy() const {
    Child writer([&] {
      const auto store = open();
      for (int i = 0; i < 10; ++i) store->setInteger(i, "new " + std::to_string(i));
      store->setObject("newer", "old 0");
      return ::kill(::getpid(), SIGKILL);
    });
    writer.wait();
  }
  static std::string oldValue(int i) { return std::string(200, static_cast<char>('a' + i % 26)); }

  void expectOldKeys(const UserDefaults& store) const {
    for (int i = 1; i < 40; ++i) {
      EXPECT_EQ(store.stringForKey("old " + std::to_string(i)), oldValue(i)) << i;
    }
    EXPECT_EQ(store.stringForKey("long"), std::string(20'000, 'x'));
    EXPECT_TRUE(store.objectForKey("old 0"));
  }
  void expectNewKeys(const UserDefaults& store) const {
    for (int i = 0; i < 10; ++i) {
      EXPECT_EQ(store.objectForKey("new " + std::to_string(i)), QEVSettings::PreferenceValue(i))
          << i;
    }
    EXPECT_EQ(store.stringForKey("old 0"), "newer");
  }

  std::filesystem::path log() const { return path.string() + "-wal"; }
  std::filesystem::path goodCopy() const { return path.string() + ".good"; }

  // Keeps the files of the store, and puts them back.
  void keepFiles() {
    kept_.clear();
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      kept_[entry.path()] = contentsOf(entry.path());
    }
  }
  void putFilesBack() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove_all(entry.path());
    for (const auto& [file, contents] : kept_) {
      overwrite(file, contents);
      std::filesystem::permissions(file, std::filesystem::perms(0600));
    }
  }

private:
  std::map<std::filesystem::path, std::string> kept_;
};

}  // namespace foundation
