// SPDX-License-Identifier: MIT
#include "foundation/Base64.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace foundation {
namespace {

TEST(Base64, DecodingTheTextGivesTheSameBytes) {
  const std::pair<std::vector<std::uint8_t>, const char*> cases[] = {{{}, ""},
                                                                     {{'f'}, "Zg=="},
                                                                     {{'f', 'o'}, "Zm8="},
                                                                     {{'f', 'o', 'o'}, "Zm9v"},
                                                                     {{1, 2, 3}, "AQID"},
                                                                     {{0xFB, 0xFF}, "+/8="}};
  for (const auto& [bytes, text] : cases) {
    EXPECT_EQ(base64Encoded(bytes), text);
    EXPECT_EQ(base64Decoded(text), bytes);
  }
  std::vector<std::uint8_t> every(256 * 3 + 1);
  for (std::size_t i = 0; i < every.size(); ++i) every[i] = static_cast<std::uint8_t>(i * 7);
  EXPECT_EQ(base64Decoded(base64Encoded(every)), every);
}

TEST(Base64, RefusesEveryOtherText) {
  for (const char* text : {"A", "AA", "AAA", "AQID\n", "AQ ID", "A===", "====", "AQ==AQID",
                           "-_8=", "Zh==", "Zm9=", "AQI*"}) {
    EXPECT_EQ(base64Decoded(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace foundation
