// SPDX-License-Identifier: MIT
#include "foundation/UUID.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace foundation {
namespace {

using testing::MatchesRegex;

TEST(UUID, HasATextForm) {
  const auto uuid = UUID::parse("e621e1f8-C36C-495A-93FC-0C247A3E6E5F");
  ASSERT_TRUE(uuid);
  EXPECT_EQ(uuid->text(), "E621E1F8-C36C-495A-93FC-0C247A3E6E5F");
  EXPECT_THAT(UUID::random().text(),
              MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
  EXPECT_NE(UUID::random(), UUID::random());
  for (const char* text :
       {"", "E621E1F8", "E621E1F8-C36C-495A-93FC-0C247A3E6E5",
        "E621E1F8-C36C-495A-93FC-0C247A3E6E5FF", "E621E1F8+C36C-495A-93FC-0C247A3E6E5F",
        "G621E1F8-C36C-495A-93FC-0C247A3E6E5F"}) {
    EXPECT_FALSE(UUID::parse(text)) << text;
  }
}

}  // namespace
}  // namespace foundation
