// SPDX-License-Identifier: MIT
#include "foundation/KeyValueObservation.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace foundation {
namespace {

TEST(KeyValueObservation, OptionsChooseTheCalls) {
  struct Case {
    ObservingOptions options;
    std::vector<int> told;
  };
  for (const auto& [options, expected] : {
           Case{ObservingOptions::initial | ObservingOptions::newValue, {1, 2, 2}},
           Case{ObservingOptions::newValue, {2, 2}},
           Case{ObservingOptions::initial, {1}},
       }) {
    Observable<int> property(1);
    std::vector<int> told;
    Subscription token = property.observe(options, [&](int value) { told.push_back(value); });
    property.set(2);
    property.set(2);
    token.cancel();
    property.set(3);
    EXPECT_EQ(told, expected);
  }
}

TEST(KeyValueObservation, SurvivesAnObserverThatEndsTheProperty) {
  auto property = std::make_unique<Observable<std::string>>("alive");
  int told = 0;
  const Subscription ending =
      property->observe(ObservingOptions::newValue, [&](const std::string&) { property.reset(); });
  const Subscription after =
      property->observe(ObservingOptions::newValue, [&](const std::string&) { ++told; });
  property->set("gone");
  EXPECT_EQ(property, nullptr);
  EXPECT_EQ(told, 0);
}

}  // namespace
}  // namespace foundation
