// SPDX-License-Identifier: MIT
#include "foundation/StringsFile.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace foundation {
namespace {

using testing::HasSubstr;

std::string utf16(std::u16string_view text, bool bigEndFirst) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndFirst ? std::string{high, low} : std::string{low, high};
  }
  return bytes;
}

TEST(StringsFile, ReadsEveryForm) {
  const auto table = parseStringsText(R"x(
// Europe/Paris = "no";
/* "Europe/Rome" = "no"; */ "Europe/Berlin" = "Berlin // /* no comment */";
America/New_York=New-York;'single' = "it's";"alone";
"es\"caped\\" = "\U00e9\t\n\101\U0041b\UD83D\ude00\q";
"twice" = "1"; "twice" = "2"; "two
lines" = "";
)x");
  ASSERT_TRUE(table) << table.error().message;
  EXPECT_EQ(*table, (StringsTable{{"Europe/Berlin", "Berlin // /* no comment */"},
                                  {"America/New_York", "New-York"},
                                  {"single", "it's"},
                                  {"alone", "alone"},
                                  {"es\"caped\\", "\u00e9\t\nAAb\U0001F600q"},
                                  {"twice", "2"},
                                  {"two\nlines", ""}}));
}

TEST(StringsFile, ReadsEveryEncoding) {
  const std::u16string text = u"\"\u00e9\" = \"\U0001F600\";";
  const StringsTable expected{{"\u00e9", "\U0001F600"}};
  for (const std::string& bytes :
       {utf16(u"\uFEFF" + text, true), utf16(u"\uFEFF" + text, false), utf16(text, true),
        utf16(text, false), std::string("\"\u00e9\" = \"\U0001F600\";"),
        std::string("\xEF\xBB\xBF\"\u00e9\" = \"\U0001F600\";")}) {
    const auto table = parseStringsFile(bytes);
    ASSERT_TRUE(table) << table.error().message;
    EXPECT_EQ(*table, expected);
  }
  EXPECT_FALSE(parseStringsFile(utf16(u"\uFEFF" + text, true) + "x"));
  for (const auto* halfPair : {u"\uFEFF\"\xD800\";", u"\uFEFF\"\xDC00\";", u"\uFEFF\"\xD800"}) {
    EXPECT_FALSE(parseStringsFile(utf16(halfPair, true)));
  }
  EXPECT_FALSE(parseStringsFile("\"\xFF\" = 1;"));
  EXPECT_EQ(*parseStringsFile(""), StringsTable());
}

TEST(StringsFile, ErrorNamesItsLine) {
  struct Case {
    const char* text;
    const char* line;
  };
  for (const auto& [text, line] :
       {Case{"\"a\" = \"b\"\n\"c\" = \"d\";", "line 2"}, Case{"\n\n\"a = b;\n\n", "line 3"},
        Case{"a = b;\n/* c", "line 2"}, Case{"= b;", "line 1"}, Case{"a = ;", "line 1"},
        Case{"a = (b);", "line 1"}, Case{"a =", "line 1"}, Case{"\"\\", "line 1"}}) {
    const auto table = parseStringsText(text);
    ASSERT_FALSE(table) << text;
    EXPECT_THAT(table.error().message, HasSubstr(line)) << text;
  }
}

}  // namespace
}  // namespace foundation
