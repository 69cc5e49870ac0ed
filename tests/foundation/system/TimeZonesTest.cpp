// SPDX-License-Identifier: MIT
#include "foundation/TimeZones.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace foundation {
namespace {

using testing::Contains;
using testing::Not;

TEST(TimeZones, AreTheZonesOfTheMachine) {
  const auto names = knownTimeZoneNames();
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
  EXPECT_THAT(names, Contains("UTC"));
  EXPECT_THAT(names, Not(Contains("Factory")));
  EXPECT_THAT(names, Contains(currentTimeZoneName()));
  if (!std::filesystem::exists("/usr/share/zoneinfo/tzdata.zi")) return;
  EXPECT_GT(names.size(), 400U);
  for (const char* expected :
       {"Europe/Berlin", "America/Argentina/Buenos_Aires", "Asia/Calcutta", "Etc/GMT-14"}) {
    EXPECT_THAT(names, Contains(expected));
  }
  ASSERT_EQ(::setenv("TZ", ":Asia/Tokyo", 1), 0);
  EXPECT_EQ(currentTimeZoneName(), "Asia/Tokyo");
  ASSERT_EQ(::setenv("TZ", "CET-1CEST", 1), 0);
  EXPECT_THAT(names, Contains(currentTimeZoneName()));
  ::unsetenv("TZ");
}

}  // namespace
}  // namespace foundation
