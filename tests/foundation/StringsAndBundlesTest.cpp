#include "foundation/Bundle.hpp"
#include "foundation/Files.hpp"
#include "foundation/StringsFile.hpp"
#include "foundation/TimeZones.hpp"
#include "foundation/Unicode.hpp"
#include "support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace foundation {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

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

TEST(StringsFile, NamesTheLineThatGoesWrong) {
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

class Bundles : public testing::Test {
protected:
  void SetUp() override {
    write("en.lproj/Localizable.strings", "hello = Hello; only = English;");
    write("de.lproj/Localizable.strings", "hello = Hallo;");
    write("zh-Hans.lproj/Localizable.strings", "hello = nihao;");
    write("pt-BR.lproj/Localizable.strings", "hello = Oi;");
    write("en.lproj/Other.strings", "hello = Other;");
    write("broken.lproj/Localizable.strings", "hello = ");
    write("image.png", "");
    write("de.lproj/page.html", "");
    before = Bundle::preferredLanguages();
  }
  void TearDown() override { Bundle::setPreferredLanguages(before); }
  void write(const std::string& name, std::string_view contents) const {
    std::filesystem::create_directories((folder / name).parent_path());
    ASSERT_TRUE(writeFile(folder / name, contents));
  }

  const support::TemporaryFolder scratch;
  const std::filesystem::path folder = scratch.path() / "Test.bundle";
  std::vector<std::string> before;
};

TEST_F(Bundles, SpeakTheBestLanguageTheyHave) {
  const auto bundle = Bundle::open(folder);
  ASSERT_NE(bundle, nullptr);
  struct Case {
    std::vector<std::string> preferred;
    const char* text;
  };
  for (const Case& language :
       {Case{{}, "Hello"}, Case{{"en-GB"}, "Hello"}, Case{{"de"}, "Hallo"},
        Case{{"de-AT", "en"}, "Hallo"}, Case{{"fr", "de"}, "Hallo"}, Case{{"fr"}, "Hello"},
        Case{{"zh-Hans"}, "nihao"}, Case{{"zh-Hans-CN"}, "nihao"}, Case{{"zh-CN"}, "nihao"},
        Case{{"zh"}, "nihao"}, Case{{"zh-Hant"}, "Hello"}, Case{{"zh-TW"}, "Hello"},
        Case{{"pt"}, "Oi"}, Case{{"pt-PT"}, "Hello"}, Case{{"broken"}, "hello"}}) {
    Bundle::setPreferredLanguages(language.preferred);
    EXPECT_EQ(bundle->localizedString("hello"), language.text)
        << testing::PrintToString(language.preferred);
  }
}

TEST_F(Bundles, FallBackToTheValueThenToTheKey) {
  const auto bundle = Bundle::open(folder);
  Bundle::setPreferredLanguages({"de"});
  EXPECT_EQ(bundle->localizedString("only"), "only");
  EXPECT_EQ(bundle->localizedString("only", "value"), "value");
  EXPECT_EQ(bundle->localizedString("hello", "", "Other"), "Other");
  EXPECT_EQ(bundle->localizedString("hello", "", "Absent"), "hello");
}

TEST_F(Bundles, FindResources) {
  const auto bundle = Bundle::open(folder);
  Bundle::setPreferredLanguages({"de"});
  EXPECT_EQ(bundle->pathForResource("image", "png"), folder / "image.png");
  EXPECT_EQ(bundle->pathForResource("image.png"), folder / "image.png");
  EXPECT_EQ(bundle->pathForResource("page", "html"), folder / "de.lproj" / "page.html");
  EXPECT_EQ(bundle->pathForResource("absent"), std::nullopt);
  EXPECT_EQ(bundle->pathForResource(""), std::nullopt);
  EXPECT_EQ(Bundle::open(folder / "absent"), nullptr);
  EXPECT_TRUE(std::filesystem::is_directory(Bundle::mainBundle().resourceFolder()));
}

TEST(TimeZones, AreThoseOfTheMachine) {
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

TEST(Unicode, WritesCapitalsByTheRulesOfUnicode) {
  EXPECT_EQ(uppercased("stra\u00dfe \u00e9 \ufb01 \u0451 \u0390 1\xFF"),
            "STRASSE \u00c9 FI \u0401 \u0399\u0308\u0301 1\xFF");
  EXPECT_EQ(uppercased("\U00010428 \u0131 i"), "\U00010400 I I");
}

}  // namespace
}  // namespace foundation
