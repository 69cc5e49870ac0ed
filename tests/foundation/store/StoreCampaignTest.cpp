// SPDX-License-Identifier: MIT
#include "StoreDamage.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <algorithm>
#include <random>

namespace foundation {
namespace {

using Outcome = QEVSettings::StoreOpening::Outcome;

class StoreCampaign : public DamagedStoreTest {
protected:
  // Damages one of the store's files. Returns whether changes may be lost without being noticed.
  bool damage(std::mt19937& random) const {
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
    const char* endings[] = {"", "", "-wal", "-wal", "-shm"};
    const std::string file = path.string() + endings[below(5)];
    std::string bytes = contentsOf(file);
    const bool isLog = file.ends_with("-wal");
    switch (below(6)) {
      case 0:
      case 1:  // some bits flipped
        for (std::size_t i = 0, count = 1 + below(8); i < count; ++i) {
          char& byte = bytes[below(bytes.size())];
          byte = static_cast<char>(byte ^ 1 << below(8));
        }
        break;
      case 2:  // cut off
        bytes.resize(below(2) == 0 ? below(bytes.size()) : below(bytes.size() / kPage) * kPage);
        overwrite(file, bytes);
        return isLog;
      case 3: {  // a page zeroed or garbled
        const std::size_t page = below(bytes.size() / kPage) * kPage;
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(page), kPage,
                    below(2) == 0 ? '\0' : '\xA5');
        break;
      }
      case 4: {  // two pages swapped
        const auto one = static_cast<std::ptrdiff_t>(below(bytes.size() / kPage) * kPage);
        const auto two = static_cast<std::ptrdiff_t>(below(bytes.size() / kPage) * kPage);
        if (one != two)
          std::swap_ranges(bytes.begin() + one, bytes.begin() + one + kPage, bytes.begin() + two);
        break;
      }
      default:  // another file
        bytes =
            below(2) == 0 ? std::string(below(20'000), '#') : contentsOf(path.string() + ".lock");
        overwrite(file, bytes);
        return isLog;
    }
    overwrite(file, bytes);
    return false;
  }
};

TEST_F(StoreCampaign, DamagedStoresKeepWhatTheirGoodCopyHas) {
  makeGoodCopy();
  writeWithoutCopy();
  keepFiles();
  const int rounds = runs(100, 1000);
  for (int round = 0; round < rounds; ++round) {
    SCOPED_TRACE(round);
    putFilesBack();
    std::mt19937 random(static_cast<unsigned>(round));
    const bool isCut = damage(random);
    said.clear();
    {
      const auto store = open();
      ASSERT_EQ(store->status(), std::nullopt) << store->status()->message;
      expectOldKeys(*store);
      std::size_t missing = store->stringForKey("old 0") == "newer" ? 0 : 1;
      for (int i = 0; i < 10; ++i)
        missing += store->objectForKey("new " + std::to_string(i)) ? 0U : 1U;
      const bool isSaid = store->opening().outcome == Outcome::restored && said.size() == 1;
      EXPECT_TRUE(missing == 0 || isSaid || isCut) << missing;
      store->setInteger(round, "after");
      EXPECT_EQ(store->status(), std::nullopt);
    }
    EXPECT_TRUE(verifyPreferences(path).isGood);
    const auto store = open();
    expectOldKeys(*store);
    EXPECT_EQ(store->integerForKey("after"), round);
    if (HasFailure()) {
      for (const std::string& line : said) GTEST_LOG_(INFO) << line;
      break;
    }
  }
}

}  // namespace
}  // namespace foundation
