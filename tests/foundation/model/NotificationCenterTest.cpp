// SPDX-License-Identifier: MIT
#include "foundation/NotificationCenter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace foundation {
namespace {

using testing::ElementsAre;

TEST(NotificationCenter, ObserversAreCalledInOrder) {
  NotificationCenter center;
  std::vector<std::string> heard;
  Subscription second;
  const Subscription first = center.observe("a", [&](std::string_view name) {
    heard.push_back("first " + std::string(name));
    center.post("b");
  });
  second = center.observe("a", [&](std::string_view) {
    heard.emplace_back("second");
    second.cancel();
  });
  const Subscription other =
      center.observe("b", [&](std::string_view) { heard.emplace_back("b"); });
  center.post("a");
  center.post("unheard");
  center.post("a");
  EXPECT_THAT(heard, ElementsAre("first a", "b", "second", "first a", "b"));
}

TEST(NotificationCenter, ObserverThatEndsDuringAPostIsNotCalled) {
  NotificationCenter center;
  int calls = 0;
  Subscription later;
  const Subscription first = center.observe("a", [&](std::string_view) { later.cancel(); });
  later = center.observe("a", [&](std::string_view) { ++calls; });
  center.post("a");
  EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace foundation
