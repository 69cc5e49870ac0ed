// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreDamage.hpp"
#include "SystemCallFaults.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <ranges>
#include <set>
#include <span>

namespace foundation {
namespace {

struct Damage {
  const char* name;
  std::function<void()> inflict;
};

class StoreCrash : public DamagedStoreTest {
protected:
  std::vector<Damage> damages() const {
    const auto garbleLog = [this] {
      overwriteAt(log(), 32 + 3 * (kPage + 24), std::string(2000, '\xA5'));
    };
    // Damages the index, which repeats what the table holds, and a byte that each start checks.
    const auto damageFile = [this] {
      overwriteAt(path, 2 * kPage, std::string(kPage, '\0'));
      overwriteAt(path, 18, "\x07");
    };
    return {{"file", damageFile},
            {"file, no good copy",
             [=, this] {
               damageFile();
               std::filesystem::remove(goodCopy());
             }},
            {"file and good copy",
             [=, this] {
               damageFile();
               overwriteAt(goodCopy(), 3 * kPage, std::string(kPage, '\0'));
             }},
            {"header of the file",
             [=, this] {
               damageFile();
               overwriteAt(path, 0, std::string(40, '\xA5'));
             }},
            {"file and log",
             [=] {
               damageFile();
               garbleLog();
             }},
            {"log", garbleLog}};
  }

  // Makes a store with new changes in its log, damages it, and keeps its files. Returns the
  // contents that a recovery restores.
  QEVSettings::PreferenceDictionary makeDamagedStore(const Damage& damage) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove_all(entry.path());
    makeGoodCopy();
    writeWithoutCopy();
    damage.inflict();
    keepFiles();
    const auto store = open();
    EXPECT_EQ(store->opening().outcome, QEVSettings::StoreOpening::Outcome::restored);
    expectOldKeys(*store);
    expectNewKeys(*store);
    return store->dictionaryRepresentation();
  }

  // The values of a store that was empty before the changes of its history.
  static QEVSettings::PreferenceDictionary valuesAfter(std::span<const RememberedChange> history) {
    QEVSettings::PreferenceDictionary values;
    for (const RememberedChange& change : history | std::views::reverse) {
      const auto found = values.find(change.key);
      EXPECT_EQ(change.before.value,
                found != values.end() ? std::optional(found->second) : std::nullopt);
      values.erase(change.key);
      if (change.after.value) values.emplace(change.key, *change.after.value);
    }
    return values;
  }

  // Puts the kept files back, and uses and closes the store in another process, which has the
  // fault. Returns the exit code of that process.
  int useWithFault(SystemCallFault fault, long number, const SystemCalls& which,
                   const std::function<int()>& use, long* calls = nullptr) const {
    putFilesBack();
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) return -1;
    Child child([&] {
      setDiagnosticSink([](std::string_view) {});
      beginSystemCallFault(fault, number, which);
      const int code = use();
      const long count = endSystemCallFault();
      return ::write(pipe[1], &count, sizeof count) == sizeof count ? code : -1;
    });
    const int code = child.wait();
    if (calls != nullptr && ::read(pipe[0], calls, sizeof *calls) != sizeof *calls) *calls = 0;
    ::close(pipe[0]);
    ::close(pipe[1]);
    return code;
  }
};

TEST_F(StoreCrash, RecoveryThatIsCutShortAnywhereIsFinishedByTheNextStart) {
  long round = 0;  // each begins elsewhere
  for (const Damage& damage : damages()) {
    SCOPED_TRACE(damage.name);
    const auto expected = makeDamagedStore(damage);
    const auto use = [&] {
      open();
      return 0;
    };
    long calls = 0;
    ASSERT_EQ(useWithFault(SystemCallFault::none, 0, {}, use, &calls), 0);
    ASSERT_GT(calls, 100);
    const long step = runs(43, 1);
    for (const auto fault : {SystemCallFault::end, SystemCallFault::fail}) {
      for (long number = 1 + 7 * round++ % step; number <= calls; number += step) {
        SCOPED_TRACE(std::string(fault == SystemCallFault::end ? "ended" : "failed") + " at call " +
                     std::to_string(number) + " of " + std::to_string(calls));
        const int code = useWithFault(fault, number, {}, use);
        ASSERT_TRUE(code == 0 || code == kEndedByFault) << code;
        {
          const auto store = open();
          ASSERT_EQ(store->status(), std::nullopt);
          ASSERT_EQ(store->dictionaryRepresentation(), expected);
        }
        ASSERT_TRUE(verifyPreferences(path).isGood);
      }
    }
  }
}

// Of the changes of a store with a history, none is in one of the two alone.
TEST_F(StoreCrash, WriterThatEndsOrFailsAnywhereLeavesStoreAndHistoryInAgreement) {
  {
    const auto store = open();
    store->setInteger(1, "a");
    store->setObject("before", "b");
  }
  keepFiles();
  const auto use = [&] {
    const auto store = UserDefaults::open(path, UserDefaults::Access::shortLived);
    static_cast<void>(store->applyChanges({{"a", 2}, {"b", std::nullopt}, {"c", "new"}}));
    store->setInteger(3, "a");
    return store->synchronize() ? 0 : 1;
  };
  long calls = 0;
  ASSERT_EQ(useWithFault(SystemCallFault::none, 0, {}, use, &calls), 0);
  ASSERT_GT(calls, 30);
  std::set<std::size_t> met;
  for (const auto fault : {SystemCallFault::end, SystemCallFault::fail}) {
    for (long number = 1; number <= calls; number += runs(3, 1)) {
      SCOPED_TRACE(std::string(fault == SystemCallFault::end ? "ended" : "failed") + " at call " +
                   std::to_string(number) + " of " + std::to_string(calls));
      useWithFault(fault, number, {}, use);
      const auto store = open();
      ASSERT_EQ(store->status(), std::nullopt);
      const auto history = store->history();
      ASSERT_TRUE(history);
      EXPECT_EQ(valuesAfter(*history), store->dictionaryRepresentation());
      met.insert(history->size());
    }
  }
  EXPECT_THAT(met, testing::IsSupersetOf({2U, 5U, 6U}));
  EXPECT_TRUE(verifyPreferences(path).isGood);
}

TEST_F(StoreCrash, FileThatCannotBeReadIsNeverTakenForEmpty) {
  const auto all = damages();
  for (const Damage& damage : {all.front(), all.back()}) {
    const auto expected = makeDamagedStore(damage);
    for (const auto access : {UserDefaults::Access::readWrite, UserDefaults::Access::readOnly}) {
      for (const char* const ending : {"-wal", ".good", ".recovering"}) {
        const SystemCalls reads{.readsAlone = true, .ending = ending};
        constexpr int saysThatSomethingIsWrong = 2;
        const auto use = [&] {
          const auto store = UserDefaults::open(path, access);
          if (store->status()) return saysThatSomethingIsWrong;
          return store->dictionaryRepresentation() == expected ? 0 : 1;
        };
        long calls = 0;
        ASSERT_EQ(useWithFault(SystemCallFault::none, 0, reads, use, &calls), 0);
        ASSERT_GT(calls, 0);
        for (long number = 1; number <= calls; ++number) {
          SCOPED_TRACE(std::string(damage.name) + ", read " + std::to_string(number) + " of " +
                       std::to_string(calls) + " of " + ending +
                       (access == UserDefaults::Access::readOnly ? ", reading alone" : ""));
          const int code = useWithFault(SystemCallFault::fail, number, reads, use);
          ASSERT_TRUE(code == 0 || code == saysThatSomethingIsWrong) << code;
          const auto store = open();
          ASSERT_EQ(store->status(), std::nullopt);
          ASSERT_EQ(store->dictionaryRepresentation(), expected);
        }
      }
    }
  }
}

TEST_F(StoreCrash, SecondCreatorWithoutHardLinksKeepsTheStoreOfTheFirst) {
  const auto other = folder / "other.sqlite";
  UserDefaults::open(other)->setInteger(1, "first");
  for (const bool alsoRenames : {false, true}) {
    for (const bool hasFirst : {false, true}) {
      SCOPED_TRACE(std::string(alsoRenames ? "no renames, " : "") +
                   (hasFirst ? "second" : "alone"));
      Child second([&] {
        removeHardLinks(alsoRenames, [&] {
          if (hasFirst) std::filesystem::copy_file(other, path);
        });
        const auto store = open();
        store->setInteger(2, "second");
        return !store->status() && store->integerForKey("first") == (hasFirst ? 1 : 0) ? 0 : 1;
      });
      EXPECT_EQ(second.wait(), 0);
      EXPECT_EQ(open()->integerForKey("second"), 2);
      for (const char* const ending : {"", ".good"})
        std::filesystem::remove(path.string() + ending);
    }
  }
}

}  // namespace
}  // namespace foundation
