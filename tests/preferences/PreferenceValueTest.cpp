// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceValue.hpp"

#include "QEVSettings/preferences/Subscription.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

namespace QEVSettings {
namespace {

constexpr std::int64_t kMinimum = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kMaximum = std::numeric_limits<std::int64_t>::max();

// A Boolean is stored from a Boolean alone: whatever merely converts to one does not compile.
static_assert(std::is_constructible_v<PreferenceValue, bool>);
static_assert(!std::is_constructible_v<PreferenceValue, const int*>);
static_assert(!std::is_constructible_v<PreferenceValue, const std::string*>);
static_assert(!std::is_constructible_v<PreferenceValue, std::optional<bool>>);
static_assert(!std::is_constructible_v<PreferenceValue, std::optional<std::string>>);
static_assert(!std::is_constructible_v<PreferenceValue, void (*)()>);

TEST(PreferenceValue, ConvertsWhereTheTypeAllowsIt) {
  struct Case {
    PreferenceValue value;
    std::optional<std::int64_t> integer;
    std::optional<bool> boolean;
    std::optional<std::string> string;
  };
  const Case cases[] = {
      {0, 0, false, "0"},
      {-7, -7, true, "-7"},
      {kMinimum, kMinimum, true, "-9223372036854775808"},
      {true, 1, true, "1"},
      {false, 0, false, "0"},
      {0.0, 0, false, "0"},
      {-2.9, -2, true, "-2.9"},
      {0.5, 0, true, "0.5"},
      {1e300, kMaximum, true, "1e+300"},
      {-1e300, kMinimum, true, "-1e+300"},
      {std::nan(""), 0, true, "nan"},
      {"12 points", 12, true, "12 points"},
      {" +5", 5, true, " +5"},
      {"-3", -3, true, "-3"},
      {"none", 0, false, "none"},
      {"", 0, false, ""},
      {"99999999999999999999", kMaximum, true, "99999999999999999999"},
      {"-99999999999999999999", kMinimum, true, "-99999999999999999999"},
      {"YES", 0, true, "YES"},
      {"true", 0, true, "true"},
      {"No", 0, false, "No"},
      {" -000", 0, false, " -000"},
      {"0008", 8, true, "0008"},
      {PreferenceValue::Bytes{'1'}, std::nullopt, std::nullopt, std::nullopt},
      {PreferenceValue::Date(), std::nullopt, std::nullopt, std::nullopt},
      {PreferenceValue::Array{1}, std::nullopt, std::nullopt, std::nullopt},
      {PreferenceDictionary{{"1", 1}}, std::nullopt, std::nullopt, std::nullopt},
  };
  for (const auto& [value, integer, boolean, string] : cases) {
    const std::string name = std::string(nameOf(value.type())) + " " + string.value_or("");
    EXPECT_EQ(value.convertedToInteger(), integer) << name;
    EXPECT_EQ(value.convertedToBoolean(), boolean) << name;
    EXPECT_EQ(value.convertedToString(), string) << name;
  }
}

TEST(PreferenceValue, IsEqualOnlyWithTheSameTypeAndContents) {
  const PreferenceValue values[] = {1,
                                    true,
                                    1.0,
                                    "1",
                                    PreferenceValue::Bytes{'1'},
                                    PreferenceValue::Date(PreferenceValue::Date::duration(1)),
                                    PreferenceValue::Array{1},
                                    PreferenceDictionary{{"1", 1}}};
  for (const PreferenceValue& a : values) {
    for (const PreferenceValue& b : values)
      EXPECT_EQ(a == b, &a == &b) << nameOf(a.type()) << " " << nameOf(b.type());
  }
  EXPECT_EQ(PreferenceValue(PreferenceValue::Array{1, "a"}),
            PreferenceValue(PreferenceValue::Array{1, "a"}));
  EXPECT_FALSE(PreferenceValue("1").asInteger());
  EXPECT_EQ(PreferenceValue(1).asString(), nullptr);
}

TEST(Subscription, EndsOnceWhereverItWasMoved) {
  int ended = 0;
  Subscription first([&] { ++ended; });
  Subscription second = std::move(first);
  // NOLINTNEXTLINE(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
  first.cancel();
  EXPECT_EQ(ended, 0);
  second = Subscription();
  EXPECT_EQ(ended, 1);
  second.cancel();
  EXPECT_EQ(ended, 1);
}

}  // namespace
}  // namespace QEVSettings
