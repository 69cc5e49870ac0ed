// SPDX-License-Identifier: MIT
#include "foundation/MainQueue.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace foundation {
namespace {

using namespace std::chrono_literals;
using QEVSettings::Subscription;
using testing::ElementsAre;

bool isReadable(int descriptor) {
  pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
  return ::poll(&waiting, 1, 0) == 1;
}

TEST(MainQueue, WorkQueuedByWorkRunsInTheNextTurn) {
  MainQueue queue;
  std::vector<std::string> ran;
  queue.async([&] {
    ran.emplace_back("first");
    queue.async([&] { ran.emplace_back("third"); });
  });
  queue.async([&] { ran.emplace_back("second"); });
  EXPECT_TRUE(queue.drain());
  EXPECT_THAT(ran, ElementsAre("first", "second"));
  EXPECT_TRUE(queue.drain());
  EXPECT_THAT(ran, ElementsAre("first", "second", "third"));
  EXPECT_FALSE(queue.drain());
}

TEST(MainQueue, DrainAllStopsAfterItsTurns) {
  MainQueue queue;
  int turns = 0;
  std::function<void()> again = [&] {
    ++turns;
    queue.async(again);
  };
  queue.async(again);
  queue.drainAll(5);
  EXPECT_EQ(turns, 5);
}

TEST(MainQueue, WakerAndDescriptorReportWorkOfAnotherThread) {
  MainQueue queue;
  int wakes = 0;
  queue.setWaker([&] { ++wakes; });
  const int descriptor = queue.descriptor();
  EXPECT_FALSE(isReadable(descriptor));
  std::thread([&] {
    queue.async([] {});
    queue.async([] {});
  }).join();
  EXPECT_EQ(wakes, 1);
  EXPECT_TRUE(isReadable(descriptor));
  EXPECT_TRUE(queue.wait(0ms));
  queue.drainAll();
  EXPECT_FALSE(isReadable(descriptor));
  EXPECT_FALSE(queue.wait(0ms));
}

TEST(MainQueue, WakerThatIsSetLateLearnsOfWaitingWork) {
  MainQueue queue;
  queue.async([] {});
  EXPECT_TRUE(isReadable(queue.descriptor()));
  int wakes = 0;
  queue.setWaker([&] { ++wakes; });
  EXPECT_EQ(wakes, 1);
}

TEST(MainQueue, RepeatedWorkRunsOnceAnIntervalUntilItsSubscriptionEnds) {
  MainQueue queue;
  EXPECT_EQ(queue.pollTimeout(), -1);
  int hourly = 0;
  int frequent = 0;
  const Subscription hours = queue.repeat(1h, [&] { ++hourly; });
  Subscription soon;
  soon = queue.repeat(0ms, [&] {
    if (++frequent == 2) soon.cancel();
  });
  EXPECT_EQ(queue.pollTimeout(), 0);
  queue.drainAll(4);
  EXPECT_EQ(frequent, 2);
  EXPECT_EQ(hourly, 0);
  EXPECT_GT(queue.pollTimeout(), 3'000'000);

  int delayed = 0;
  const Subscription later = queue.repeat(20ms, [&] { ++delayed; });
  EXPECT_TRUE(queue.wait(1h));
  queue.drainAll(4);
  EXPECT_EQ(delayed, 1);
}

}  // namespace
}  // namespace foundation
