// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/HostIdentity.hpp"

#include <gtest/gtest.h>

namespace QEVSettings {
namespace {

TEST(HostIdentityTest, HostThatSaysNothingHasTheNameOfItsProgram) {
  HostIdentity::set({});
  EXPECT_EQ(HostIdentity::current().id, "preferences_test");
  EXPECT_EQ(HostIdentity::current().displayName, "preferences_test");
  EXPECT_EQ(HostIdentity::current().version, "");
}

TEST(HostIdentityTest, IdIsMadeFitForTheNameOfAFolder) {
  const auto idFrom = [](const char* id) {
    HostIdentity::set({.id = id, .displayName = "Name", .version = {}});
    return HostIdentity::current().id;
  };
  EXPECT_EQ(idFrom("org.example.Analyzer_2-b"), "org.example.Analyzer_2-b");
  EXPECT_EQ(idFrom("../a b/\xc3\xa4\n"), "..-a-b----");
  EXPECT_EQ(idFrom(".."), "--");
  EXPECT_EQ(idFrom("."), "-");
  EXPECT_EQ(HostIdentity::current().displayName, "Name");
  HostIdentity::set({});
}

}  // namespace
}  // namespace QEVSettings
