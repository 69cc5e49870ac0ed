// SPDX-License-Identifier: MIT
#include "Child.hpp"
#include "StoreFixture.hpp"
#include "WaitingChild.hpp"
#include "foundation/store/watch/CommitStamp.hpp"
#include "foundation/store/watch/PreferencesWatch.hpp"

#include <gmock/gmock.h>
#include <poll.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <semaphore>
#include <thread>

namespace foundation {
namespace {

using QEVSettings::Subscription;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

void touch(const std::filesystem::path& file) { std::ofstream(file, std::ios::app) << '!'; }

// Stops the thread that arrives at `hold` until `release`.
class Gate {
public:
  void hold() {
    if (isUsed_.exchange(true)) return;
    entered_.release();
    opened_.acquire();
    isPassed_ = true;
  }
  bool waitUntilHeld() { return entered_.try_acquire_for(std::chrono::seconds(60)); }
  void release() { opened_.release(); }
  bool isPassed() const { return isPassed_; }

private:
  std::atomic<bool> isUsed_ = false;
  std::atomic<bool> isPassed_ = false;
  std::binary_semaphore entered_{0};
  std::binary_semaphore opened_{0};
};

enum class Step { watchFolder, queueChange, synchronizeLog, keepCopy };

class HeldSystem : public WatchSystem {
public:
  HeldSystem(Step step, Gate& gate) : step_(step), gate_(gate) {}

  // The first call is the constructor's, on the main thread.
  Result<FileDescriptor> watchFolder(const std::filesystem::path& folder) override {
    if (step_ != Step::watchFolder) return WatchSystem::watchFolder(folder);
    if (hasBeenAsked_.exchange(true)) gate_.hold();
    return Error{"refused"};
  }
  bool synchronizeLog(const std::filesystem::path&) override {
    if (step_ == Step::synchronizeLog) gate_.hold();
    return false;
  }
  std::chrono::milliseconds pauseBeforeCopy() const override {
    return std::chrono::milliseconds(0);
  }
  std::optional<QEVSettings::StoreOpening> keepCopy(const std::filesystem::path&) override {
    if (step_ == Step::keepCopy) gate_.hold();
    return QEVSettings::StoreOpening();
  }

private:
  const Step step_;
  Gate& gate_;
  std::atomic<bool> hasBeenAsked_ = false;
};

class StoreWatch : public StoreTest {
protected:
  void TearDown() override {
    MainQueue::mainQueue().setWaker({});
    StoreTest::TearDown();
  }
};

TEST_F(StoreWatch, DestructorWaitsForTheCurrentStepAndNoCallbackFollows) {
  for (const Step step :
       {Step::watchFolder, Step::queueChange, Step::synchronizeLog, Step::keepCopy}) {
    SCOPED_TRACE(static_cast<int>(step));
    Gate gate;
    int calls = 0;
    if (step == Step::queueChange) MainQueue::mainQueue().setWaker([&] { gate.hold(); });
    // The destructor lets go of the callbacks first, which is how the held thread learns that it
    // has begun.
    std::function<void()> callback = [&calls, releasing = std::make_shared<Subscription>(
                                                  [&gate] { gate.release(); })] { ++calls; };
    auto watch = std::make_unique<PreferencesWatch>(
        path,
        PreferencesWatch::Callbacks{.changed = callback,
                                    .retry = callback,
                                    .lost = callback,
                                    .recovered = [callback](const auto&) { callback(); }},
        std::make_shared<HeldSystem>(step, gate));
    callback = {};
    touch(path);
    watch->didWrite();
    static_cast<void>(watch->synchronizeLater(std::chrono::milliseconds(0)));
    ASSERT_TRUE(gate.waitUntilHeld());
    watch.reset();
    EXPECT_TRUE(gate.isPassed());
    MainQueue::mainQueue().setWaker({});
    MainQueue::mainQueue().drainAll();
    EXPECT_EQ(calls, 0);
  }
}

// The queue is first used after the store, so that a queue with an ordinary lifetime would be
// destroyed first.
Gate& gateAtExit() {
  static Gate gate;
  return gate;
}

TEST_F(StoreWatch, ProcessThatEndsWhileTheThreadQueuesWorkEndsInOrder) {
  Child child([&] {
    // Another process writes. A second store in this process would have a thread that may arrive at
    // the gate first, and closing the store would wait for it.
    WaitingChild writer([&] {
      open()->setInteger(1, "key");
      return 0;
    });
    UserDefaults::setStandardFile(path);
    gateAtExit();
    auto& store = UserDefaults::standardUserDefaults();
    std::atexit([] { gateAtExit().release(); });
    MainQueue::mainQueue().setWaker([] {
      gateAtExit().hold();
      MainQueue::mainQueue().async([] {});
    });
    static const Subscription all = store.observeAll([](std::string_view) {});
    writer.start();
    if (!gateAtExit().waitUntilHeld()) return 1;
    writer.wait();
    std::exit(store.integerForKey("key") == 1 ? 0 : 2);
  });
  EXPECT_EQ(child.wait(), 0);
}

struct Refusals {
  const char* name;
  bool folder;
  bool wake;
  int threads;  // how many are refused before one is granted
};

class RefusingSystem : public WatchSystem {
public:
  explicit RefusingSystem(Refusals refused) : refused_(refused) {}
  std::optional<std::thread> startThread(std::function<void()> work) override {
    return refused_.threads-- > 0 ? std::nullopt : WatchSystem::startThread(std::move(work));
  }
  FileDescriptor openWake() override {
    return refused_.wake ? FileDescriptor() : WatchSystem::openWake();
  }
  Result<FileDescriptor> watchFolder(const std::filesystem::path& folder) override {
    if (refused_.folder) return Error{"refused"};
    return WatchSystem::watchFolder(folder);
  }

private:
  Refusals refused_;
};

TEST_F(StoreWatch, RefusalByTheSystemIsReportedOnceAndFilesAreCompared) {
  constexpr int always = 1'000'000;
  const Refusals cases[] = {
      {.name = "inotify", .folder = true, .wake = false, .threads = 0},
      {.name = "descriptors", .folder = true, .wake = true, .threads = 0},
      {.name = "descriptor to wake by", .folder = false, .wake = true, .threads = 0},
      {.name = "thread", .folder = false, .wake = false, .threads = always},
      {.name = "thread at first", .folder = false, .wake = false, .threads = 2},
      {.name = "everything", .folder = true, .wake = true, .threads = always}};
  for (const Refusals& refused : cases) {
    SCOPED_TRACE(refused.name);
    said.clear();
    int changes = 0;
    int retries = 0;
    PreferencesWatch watch(path,
                           {.changed = [&] { ++changes; },
                            .retry = [&] { ++retries; },
                            .lost = [] {},
                            .recovered = [](const auto&) {}},
                           std::make_shared<RefusingSystem>(refused));
    for (int i = 1; i <= 3; ++i) {
      const int before = changes;
      touch(path);
      EXPECT_TRUE(waitUntil([&] { return changes > before; }));
    }
    watch.retryLater();
    EXPECT_TRUE(waitUntil([&] { return retries == 1; }));
    EXPECT_EQ(watch.synchronizeLater(std::chrono::milliseconds(0)), refused.threads != always);
    EXPECT_THAT(said, ElementsAre(HasSubstr("looked for")));
  }
}

class RecoveringSystem : public WatchSystem {
public:
  std::chrono::milliseconds pauseBeforeCopy() const override {
    return std::chrono::milliseconds(0);
  }
  std::optional<QEVSettings::StoreOpening> keepCopy(const std::filesystem::path&) override {
    QEVSettings::StoreOpening opening;
    opening.message = "recovered";
    return opening;
  }
};

TEST_F(StoreWatch, RecoveryByTheThreadIsHandedToTheOwner) {
  std::string message;
  PreferencesWatch watch(path,
                         {.changed = [] {},
                          .retry = [] {},
                          .lost = [] {},
                          .recovered = [&](const auto& opening) { message = opening.message; }},
                         std::make_shared<RecoveringSystem>());
  touch(path);
  watch.didWrite();
  EXPECT_TRUE(waitUntil([&] { return message == "recovered"; }));
}

TEST_F(StoreWatch, FolderThatIsReplacedIsWatchedAgain) {
  const auto inner = folder / "inner";
  std::filesystem::create_directory(inner);
  int changes = 0;
  const PreferencesWatch watch(inner / "store", {.changed = [&] { ++changes; },
                                                 .retry = [] {},
                                                 .lost = [] {},
                                                 .recovered = [](const auto&) {}});
  for (int round = 0; round < 2; ++round) {
    int before = changes;
    touch(inner / "store");
    EXPECT_TRUE(waitUntil([&] { return changes > before; }));
    before = changes;
    std::filesystem::rename(inner, folder / std::to_string(round));
    EXPECT_TRUE(waitUntil([&] { return changes > before; }));
    std::filesystem::create_directory(inner);
  }
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(StoreWatch, CommitStampTellsOwnWritesFromOthers) {
  EXPECT_EQ(CommitStamp::newsOf(path), CommitStamp::News::unknown);
  const auto store = open();
  for (int i = 0; i < 3; ++i) {
    store->setInteger(i, "own");
    EXPECT_EQ(CommitStamp::newsOf(path), CommitStamp::News::none);
  }
  const auto other = open();
  other->setInteger(1, "other");
  EXPECT_EQ(CommitStamp::newsOf(path), CommitStamp::News::some);
  EXPECT_EQ(store->integerForKey("other"), 1);
  EXPECT_EQ(CommitStamp::newsOf(path), CommitStamp::News::none);
}

TEST_F(StoreWatch, WakerIsNotCalledAfterItWasReplaced) {
  std::atomic<int> calls = 0;
  MainQueue::mainQueue().setWaker([&] { ++calls; });
  MainQueue::mainQueue().async([] {});
  EXPECT_EQ(calls, 1);
  MainQueue::mainQueue().setWaker({});
  MainQueue::mainQueue().drainAll();
  MainQueue::mainQueue().async([] {});
  EXPECT_EQ(calls, 1);
}

TEST_F(StoreWatch, QueueDescriptorIsReadableWhileWorkWaits) {
  MainQueue queue;
  const auto isReadable = [&queue](int milliseconds) {
    pollfd waiting{.fd = queue.descriptor(), .events = POLLIN, .revents = 0};
    return ::poll(&waiting, 1, milliseconds) == 1;
  };
  queue.async([] {});
  EXPECT_TRUE(isReadable(0)) << "also work that was there before the descriptor";
  queue.drain();
  EXPECT_FALSE(isReadable(0));
  std::thread other([&queue] { queue.async([&queue] { queue.async([] {}); }); });
  EXPECT_TRUE(isReadable(60'000));
  other.join();
  queue.drain();
  EXPECT_TRUE(isReadable(0)) << "what the work queued itself waits for the next turn";
  queue.drain();
  EXPECT_FALSE(isReadable(0));
}

TEST_F(StoreWatch, RepeatedWorkRunsInTurnsUntilItsSubscriptionEnds) {
  MainQueue queue;
  EXPECT_EQ(queue.pollTimeout(), -1);
  int runs = 0;
  std::optional<Subscription> subscription;
  subscription = queue.repeat(std::chrono::milliseconds(1), [&] {
    if (++runs == 3) subscription.reset();
  });
  EXPECT_GE(queue.pollTimeout(), 0);
  while (runs < 3) {
    EXPECT_TRUE(queue.wait(std::chrono::seconds(60)));
    queue.drain();
  }
  EXPECT_FALSE(queue.wait(std::chrono::milliseconds(0)));
  EXPECT_FALSE(queue.drain());
}

}  // namespace
}  // namespace foundation
