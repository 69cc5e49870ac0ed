#include "StoreDamage.hpp"
#include "SystemCallFaults.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <array>
#include <functional>

namespace foundation {
namespace {

class StoreCrash : public DamagedStoreTest {
protected:
  // Opens and closes the store in a process of its own that has the fault; how many calls that took
  // where it ended.
  int openWithFault(SystemCallFault fault, long number, long* calls = nullptr) const {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) return -1;
    Child child([&] {
      setDiagnosticSink([](std::string_view) {});
      beginSystemCallFault(fault, number);
      open();
      const long count = endSystemCallFault();
      return ::write(pipe[1], &count, sizeof count) == sizeof count ? 0 : 1;
    });
    const int code = child.wait();
    if (calls != nullptr && ::read(pipe[0], calls, sizeof *calls) != sizeof *calls) *calls = 0;
    ::close(pipe[0]);
    ::close(pipe[1]);
    return code;
  }
};

TEST_F(StoreCrash, RecoveryThatIsCutShortAnywhereIsFinishedByTheNextStart) {
  struct Case {
    const char* name;
    std::function<void()> damage;
  };
  const Case cases[] = {
      {"with a good copy", [] {}},
      {"without a good copy", [&] { std::filesystem::remove(goodCopy()); }},
      {"with a damaged good copy",
       [&] { overwriteAt(goodCopy(), 3 * kPage, std::string(kPage, '\0')); }},
      {"with a garbled header", [&] { overwriteAt(path, 0, std::string(40, '\xA5')); }},
      {"with a garbled log",
       [&] { overwriteAt(log(), 32 + 3 * (kPage + 24), std::string(2000, '\xA5')); }},
  };
  long round = 0;  // each begins elsewhere
  for (const auto& [name, damage] : cases) {
    SCOPED_TRACE(name);
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      std::filesystem::remove_all(entry.path());
    makeGoodCopy();
    writeWithoutCopy();
    damage();
    // The index, which holds nothing that the table does not hold, and a byte that each start looks
    // at.
    overwriteAt(path, 2 * kPage, std::string(kPage, '\0'));
    overwriteAt(path, 18, "\x07");
    keepFiles();
    QEVSettings::PreferenceDictionary expected;
    {
      const auto store = open();
      EXPECT_EQ(store->opening().outcome, QEVSettings::StoreOpening::Outcome::restored);
      expectOldKeys(*store);
      expectNewKeys(*store);
      expected = store->dictionaryRepresentation();
    }
    putFilesBack();
    long calls = 0;
    ASSERT_EQ(openWithFault(SystemCallFault::none, 0, &calls), 0);
    ASSERT_GT(calls, 100);
    const long step = runs(43, 1);
    for (const auto fault : {SystemCallFault::end, SystemCallFault::fail}) {
      for (long number = 1 + 7 * round++ % step; number <= calls; number += step) {
        SCOPED_TRACE(std::string(fault == SystemCallFault::end ? "ended" : "failed") + " at call " +
                     std::to_string(number) + " of " + std::to_string(calls));
        putFilesBack();
        const int code = openWithFault(fault, number);
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

}  // namespace
}  // namespace foundation
