// SPDX-License-Identifier: MIT
#include "QEVModels/PortsValidator.hpp"

#include "foundation/Bundle.hpp"

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <vector>

namespace QEVModels {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

std::string kindsOf(const PortValidationResult& result) {
  std::string kinds;
  for (const PortCorrection& correction : result.corrections) {
    if (!kinds.empty()) kinds += ' ';
    kinds += nameOf(correction.kind());
  }
  return kinds;
}

struct Case {
  std::string_view text;
  std::string_view ports;
  std::string_view kinds;
};

using namespace std::string_view_literals;

constexpr Case kCases[] = {
    {"", "", ""},
    {" ,;\n\t ", "", ""},
    {"80", "80", ""},
    {"0,65535", "0,65535", ""},
    {"0-65535", "0-65535", ""},
    {"0080,007-0009", "7-9,80", ""},
    // Separators and order
    {"443 80", "80,443", ""},
    {"443;80\r\n8080,\t53", "53,80,443,8080", ""},
    {",,80,,443,;", "80,443", ""},
    {"443\xE3\x80\x81"
     "80\xC2\xA0"
     "53",
     "53,80,443", ""},
    // Full-width forms, and every kind of dash
    {"８０，４４３；５３", "53,80,443", ""},
    {"８０００－８０１０　２１", "21,8000-8010", ""},
    {"1‐3;5–7;9—11;13−15;17～19;21〜23", "1-3,5-7,9-11,13-15,17-19,21-23", ""},
    {"8000 - 8010", "8000-8010", ""},
    {"80 -90 100- 110", "80-90,100-110", ""},
    // Ranges swallow what overlaps, touches or lies next to them; ports stay single
    {"80, 81", "80,81", ""},
    {"10-20,15-30", "10-30", ""},
    {"10-20,21-30", "10-30", ""},
    {"10-30,15-20", "10-30", ""},
    {"10-20,22-30", "10-20,22-30", ""},
    {"15,10-20", "10-20", ""},
    {"8,9,10-20,21,22,24", "8-22,24", ""},
    {"65534-65535,0-1", "0-1,65534-65535", ""},
    // What is left out
    {"http", "", "invalid"},
    {"80,http,+443,0x50,80.1", "80", "invalid"},
    {"-", "", "invalid"},
    {"- 80\n- 443", "80,443", "invalid"},
    {"80-,-90,1-2-3,4--5", "", "invalid"},
    {"80 -", "80", "invalid"},
    {"80-\n90", "90", "invalid"},
    {"٨٠", "", "invalid"},
    {"80\0,443"sv, "443", "invalid"},
    {"8\xFF"
     "0,\xC0\xB8\xB0,443",
     "443", "invalid"},
    {"65536", "", "outOfRange"},
    {"70000-80000,80", "80", "outOfRange"},
    {"1-65536", "", "outOfRange"},
    {"65536-1", "", "outOfRange"},
    {"18446744073709551696,99999999999999999999999999", "", "outOfRange"},
    // What is put right aloud
    {"8010-8000", "8000-8010", "reversed"},
    {"80,80,80", "80", "duplicate"},
    {"80,８０", "80", "duplicate"},
    {"1-5,1-5", "1-5", "duplicate"},
    {"1-5,5-1", "1-5", "reversed duplicate"},
    {"80-80", "80", "duplicate"},
    {"80,80,9-1,70000,x", "1-9,80", "invalid outOfRange reversed duplicate"},
};

TEST(PortsValidatorTest, BringsEveryTextIntoNormalForm) {
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.text);
    const PortValidationResult result = validatedPorts(each.text);
    EXPECT_EQ(result.ports, each.ports);
    EXPECT_EQ(kindsOf(result), each.kinds);
    const PortValidationResult again = validatedPorts(result.ports);
    EXPECT_EQ(again.ports, result.ports);
    EXPECT_THAT(again.corrections, IsEmpty());
  }
}

std::string onlyMessage(std::string_view text, const std::string& language = "en") {
  foundation::Bundle::setPreferredLanguages({language});
  const auto result = validatedPorts(text);
  EXPECT_THAT(result.corrections, SizeIs(1));
  return result.corrections.empty() ? "" : result.corrections.front().message();
}

TEST(PortsValidatorTest, MessagesNameThePiecesAsTheyWereWritten) {
  EXPECT_EQ(onlyMessage("70000"), "“70000” is not a port (0–65535) and was left out");
  EXPECT_EQ(onlyMessage("７００００;70001,70000-1"),
            "“７００００”, “70001” and “70000-1” are not ports (0–65535) and were left out");
  EXPECT_EQ(onlyMessage("80,http"), "“http” is neither a port nor a range and was left out");
  EXPECT_EQ(onlyMessage("a,b,a,c,a,d,e,a"),
            "“a”, “b”, “c” and 2 more are neither ports nor ranges and were left out");
  EXPECT_EQ(onlyMessage("20 – 10, 7-3"),
            "“20 – 10” and “7-3” were written backwards and were turned");
  EXPECT_EQ(onlyMessage("80,80,80"), "“80” was named more than once and was kept once");
}

TEST(PortsValidatorTest, MessagesAreInTheLanguageOfTheUser) {
  EXPECT_EQ(onlyMessage("70000", "de"), "„70000“ ist kein Port (0–65535) und wurde weggelassen");
  EXPECT_EQ(
      onlyMessage("a,b", "fr"),
      "«\u00a0a\u00a0» et «\u00a0b\u00a0» ne sont ni des ports ni des plages et ont été ignorés");
  EXPECT_EQ(onlyMessage("a b c d", "ja"),
            "「a」、「b」、「c」、ほか1件はポートでも範囲でもないため除きました");
  for (const char* language : {"de", "fr", "es", "ja", "zh-Hans", "ar"}) {
    for (const char* text : {"x1", "x1,x2", "70001", "70001,70002", "70-1", "70-1,71-1", "7,7",
                             "7,7,8,8", "x1,x2,x3,x4"}) {
      const std::string english = onlyMessage(text);
      const std::string message = onlyMessage(text, language);
      EXPECT_NE(message, english) << language;
      EXPECT_THAT(message, HasSubstr(std::string(text).substr(0, std::string_view(text).find(','))))
          << language;
      EXPECT_THAT(message, Not(HasSubstr("%"))) << language;
    }
  }
}

TEST(PortsValidatorTest, MessagesStayShortAndPrintable) {
  const std::string message = onlyMessage("\x1B[31mred\x7F" + std::string(1'000'000, 'x'));
  EXPECT_THAT(message, SizeIs(::testing::Lt(200)));
  EXPECT_THAT(message, HasSubstr("…"));
  EXPECT_THAT(message, Not(HasSubstr("\x1B")));
  EXPECT_THAT(message, Not(HasSubstr("\x7F")));
}

TEST(PortsValidatorTest, TakesAMillionCharacters) {
  std::string everyPort;
  for (int port = 65535; port >= 0; --port)
    everyPort += std::to_string(port) + (port % 2 == 0 ? "," : "\n");
  for (int i = 0; i < 3; ++i) everyPort += everyPort.substr(0, 300'000);
  const auto result = validatedPorts(everyPort);
  EXPECT_EQ(std::ranges::count(result.ports, ','), 65535);
  EXPECT_EQ(kindsOf(result), "duplicate");

  EXPECT_EQ(validatedPorts("80 " + std::string(1'000'000, ' ') + "- " +
                           std::string(1'000'000, ' ') + "90")
                .ports,
            "80-90");
}

}  // namespace
}  // namespace QEVModels
