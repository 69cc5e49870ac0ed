#include "foundation/Base64.hpp"
#include "foundation/KeyValueObservation.hpp"
#include "foundation/NotificationCenter.hpp"
#include "foundation/UUID.hpp"
#include "foundation/Unicode.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace foundation {
namespace {

using testing::ElementsAre;
using testing::MatchesRegex;

TEST(Base64, GoesBothWays) {
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

TEST(NotificationCenter, TellsThoseWhoAskedInOrder) {
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

TEST(KeyValueObservation, DeliversWhatTheOptionsSay) {
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

TEST(Unicode, KnowsWellFormedText) {
  for (const char* text :
       {"", "a", "\u00e9", "\u20ac", "\U0001F600", "\U0010FFFF", "\uD7FF\uE000"}) {
    EXPECT_TRUE(isValidUtf8(text)) << text;
  }
  for (const char* text : {"\x80", "\xC1\x81", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                           "\xF4\x90\x80\x80", "\xF5", "\xE2\x82", "a\xFF"}) {
    EXPECT_FALSE(isValidUtf8(text)) << text;
  }
  EXPECT_EQ(repairedUtf8("a\xFF\u00e9\xE2\x82"), "a\uFFFD\u00e9\uFFFD\uFFFD");
}

TEST(Unicode, FirstCharacterIsDecodedOrAbsent) {
  for (const char32_t codePoint : {U'a', U'\u00e9', U'\u20ac', U'\U0010FFFF', U'\0'}) {
    std::string text;
    appendUtf8(text, codePoint);
    const auto character = firstCharacter(text + "z");
    ASSERT_TRUE(character) << text;
    EXPECT_EQ(character->codePoint, codePoint);
    EXPECT_EQ(character->length, text.size());
  }
  for (const char* text : {"", "\x80z", "\xE2\x82", "\xED\xA0\x80"})
    EXPECT_FALSE(firstCharacter(text)) << text;
  std::string replaced;
  for (const char32_t invalid : {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x110000}})
    appendUtf8(replaced, invalid);
  EXPECT_EQ(replaced, "\uFFFD\uFFFD\uFFFD");
}

}  // namespace
}  // namespace foundation
