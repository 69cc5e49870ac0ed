// SPDX-License-Identifier: MIT
#include "appkit/Event.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace appkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Event kDown{.keyCode = Event::kDownArrow};

std::optional<Event> pressDown() { return Event::passThroughMonitors(Event::kKeyDownMask, kDown); }

class EventMonitorTest : public ::testing::Test {
protected:
  using MonitorPtr = std::shared_ptr<Event::Monitor>;

  // Notes the name, and passes the event on.
  MonitorPtr noting(const std::string& name) {
    return Event::addLocalMonitorForEventsMatchingMask(Event::kKeyDownMask,
                                                       [this, name](const Event& event) {
                                                         seen.push_back(name);
                                                         return std::optional(event);
                                                       });
  }

  std::vector<std::string> seen;
};

TEST_F(EventMonitorTest, SeesEventsInTheOrderOfInstallation) {
  const auto first = noting("first");
  const auto second = noting("second");
  const auto passedOn = pressDown();
  EXPECT_THAT(seen, ElementsAre("first", "second"));
  ASSERT_TRUE(passedOn);
  EXPECT_EQ(passedOn->keyCode, Event::kDownArrow);
}

TEST_F(EventMonitorTest, ConsumedEventsGoNoFurther) {
  const auto consuming = Event::addLocalMonitorForEventsMatchingMask(
      Event::kKeyDownMask, [](const Event&) { return std::optional<Event>(); });
  const auto later = noting("later");
  EXPECT_FALSE(pressDown());
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(EventMonitorTest, NextMonitorSeesTheEventThatTheFirstPassesOn) {
  const auto turning =
      Event::addLocalMonitorForEventsMatchingMask(Event::kKeyDownMask, [](const Event& event) {
        Event turned = event;
        turned.keyCode = Event::kUpArrow;
        return std::optional(turned);
      });
  int seenKey = 0;
  const auto noting =
      Event::addLocalMonitorForEventsMatchingMask(Event::kKeyDownMask, [&](const Event& event) {
        seenKey = event.keyCode;
        return std::optional(event);
      });
  const auto passedOn = pressDown();
  EXPECT_EQ(seenKey, Event::kUpArrow);
  ASSERT_TRUE(passedOn);
  EXPECT_EQ(passedOn->keyCode, Event::kUpArrow);
}

TEST_F(EventMonitorTest, SeesOnlyTheKindsThatItAskedFor) {
  const auto monitor = noting("keys");
  const auto passedOn = Event::passThroughMonitors(Event::kKeyDownMask << 1U, kDown);
  EXPECT_TRUE(passedOn);
  EXPECT_THAT(seen, IsEmpty());
}

TEST_F(EventMonitorTest, EndsWhenItIsRemovedOrDestroyed) {
  const auto removed = noting("removed");
  auto destroyed = noting("destroyed");
  const auto kept = noting("kept");
  Event::removeMonitor(removed);
  Event::removeMonitor(removed);
  Event::removeMonitor(nullptr);
  destroyed.reset();
  pressDown();
  EXPECT_THAT(seen, ElementsAre("kept"));
}

TEST_F(EventMonitorTest, HandlerMayRemoveItselfAndOthers) {
  MonitorPtr itself;
  MonitorPtr next;
  itself =
      Event::addLocalMonitorForEventsMatchingMask(Event::kKeyDownMask, [&](const Event& event) {
        seen.emplace_back("itself");
        Event::removeMonitor(itself);
        Event::removeMonitor(next);
        itself.reset();
        return std::optional(event);
      });
  next = noting("next");
  const auto last = noting("last");
  pressDown();
  pressDown();
  EXPECT_THAT(seen, ElementsAre("itself", "last", "last"));
}

TEST_F(EventMonitorTest, MonitorAddedByAHandlerSeesTheNextEvent) {
  MonitorPtr added;
  const auto adding =
      Event::addLocalMonitorForEventsMatchingMask(Event::kKeyDownMask, [&](const Event& event) {
        if (!added) added = noting("added");
        return std::optional(event);
      });
  pressDown();
  EXPECT_THAT(seen, IsEmpty());
  pressDown();
  EXPECT_THAT(seen, ElementsAre("added"));
}

}  // namespace
}  // namespace appkit
