// SPDX-License-Identifier: MIT
#include "foundation/Unicode.hpp"

#include <gtest/gtest.h>

#include <string>

namespace foundation {
namespace {

TEST(Unicode, TellsWellFormedTextFromOther) {
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

TEST(Unicode, WritesCapitalsByTheRulesOfUnicode) {
  EXPECT_EQ(uppercased("stra\u00dfe \u00e9 \ufb01 \u0451 \u0390 1\xFF"),
            "STRASSE \u00c9 FI \u0401 \u0399\u0308\u0301 1\xFF");
  EXPECT_EQ(uppercased("\U00010428 \u0131 i"), "\U00010400 I I");
}

}  // namespace
}  // namespace foundation
