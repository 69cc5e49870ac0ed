#include "foundation/PropertyList.hpp"
#include "support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>

namespace foundation {
namespace {

using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;
using testing::HasSubstr;

PreferenceValue::Date date(double secondsSince1970) {
  return PreferenceValue::Date(PreferenceValue::Date::duration(secondsSince1970));
}

PreferenceDictionary everyType() {
  return {
      {"true", true},
      {"one", 1},
      {"minimum", std::numeric_limits<std::int64_t>::min()},
      {"maximum", std::numeric_limits<std::int64_t>::max()},
      {"real one", 1.0},
      {"third", 1.0 / 3},
      {"tiny", 5e-324},
      {"huge", -1.7976931348623157e308},
      {"text", "a < b & \u00e9 \U0001F600\n\t"},
      {"no text", ""},
      {"data", PreferenceValue::Bytes{0, 1, 2, 0xFF}},
      {"no data", PreferenceValue::Bytes{}},
      {"date", date(1'600'000'000)},
      {"early", date(-300'000'000)},
      {"array", PreferenceValue::Array{1, true, "x", PreferenceValue::Array{}}},
      {"dictionary", PreferenceDictionary{{"", PreferenceDictionary{}}, {"\u00fc", PreferenceValue::Bytes{7}}}},
  };
}

std::string xml(const std::string& body) {
  return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + body + "</plist>";
}

TEST(PropertyList, KeepsEveryTypeInBothFormats) {
  for (const auto format : {PropertyListFormat::xml, PropertyListFormat::binary}) {
    const auto bytes = propertyListBytes(everyType(), format);
    ASSERT_TRUE(bytes) << bytes.error().message;
    const auto read = parsePropertyList(*bytes);
    ASSERT_TRUE(read) << read.error().message;
    EXPECT_EQ(*read, everyType());
  }
}

TEST(PropertyList, KeepsFractionsOfSecondsInBinary) {
  for (const double seconds : {978307200.25, 978307198.5, 1.75, -1.75}) {
    const auto bytes = propertyListBytes({{"date", date(seconds)}}, PropertyListFormat::binary);
    ASSERT_TRUE(bytes);
    const auto read = parsePropertyList(*bytes);
    ASSERT_TRUE(read);
    EXPECT_NEAR(read->at("date").asDate()->time_since_epoch().count(), seconds, 1e-5);
  }
}

TEST(PropertyList, RefusesWhatAFormatCannotHold) {
  PreferenceValue deep = 1;
  for (int i = 0; i < 600; ++i) deep = PreferenceValue::Array{deep};
  for (const PreferenceValue& value : {PreferenceValue(std::string("a\0b", 3)), PreferenceValue("\xFF"), deep,
                                       PreferenceValue(date(1e18)), PreferenceValue(date(std::nan("")))}) {
    EXPECT_FALSE(propertyListBytes({{"key", value}}, PropertyListFormat::binary));
  }
  EXPECT_FALSE(propertyListBytes({{std::string("a\0", 2), 1}}, PropertyListFormat::binary));
  EXPECT_FALSE(propertyListBytes({{"key", "\x01"}}, PropertyListFormat::xml));
  EXPECT_TRUE(propertyListBytes({{"key", "\x01"}}, PropertyListFormat::binary));
}

TEST(PropertyList, SurvivesHostileLists) {
  const auto nested = [](int depth, const std::string& open, const std::string& close) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += open;
    for (int i = 0; i < depth; ++i) text += close;
    return xml("<dict><key>k</key>" + text + "</dict>");
  };
  EXPECT_TRUE(parsePropertyList(nested(500, "<array>", "</array>")));
  for (const std::string& text :
       {nested(100'000, "<array>", "</array>"), nested(100'000, "<dict><key>a</key>", "</dict>"),
        xml("<dict><key>k</key><integer>18446744073709551615</integer></dict>"),
        xml("<dict><key>k</key><integer>99999999999999999999</integer></dict>"), xml("<array/>"),
        xml("<string>x</string>"), xml(""), std::string("<?xml version=\"1.0\"?><plist><dict><key>k</key>"),
        std::string("<!DOCTYPE plist ["), std::string(), std::string("x"), std::string("bplist00"),
        std::string("bplist00") + std::string(40, '\xFF')}) {
    const auto read = parsePropertyList(text);
    EXPECT_FALSE(read) << text.substr(0, 100);
  }
  // Forty arrays, each of which holds the next one twice.
  std::string twice = "bplist00";
  std::string table;
  for (int i = 0; i < 40; ++i) {
    table += static_cast<char>(twice.size());
    twice +=
        i == 0 ? std::string("\xD1\x28\x01", 3) : std::string("\xA2", 1) + std::string(2, static_cast<char>(i + 1));
  }
  table += static_cast<char>(twice.size());
  twice += std::string("\x51k", 2);
  const std::size_t tableAt = twice.size();
  twice += table + std::string(6, '\0') + std::string("\x01\x01", 2);
  for (const std::size_t number : {std::size_t{41}, std::size_t{0}, tableAt})
    twice += std::string(7, '\0') + static_cast<char>(number);
  const auto read = parsePropertyList(twice);
  ASSERT_FALSE(read);
  EXPECT_THAT(read.error().message, HasSubstr("unfolds"));
}

TEST(PropertyList, ReadsAndWritesFiles) {
  const support::TemporaryFolder scratch;
  const std::filesystem::path& folder = scratch.path();
  const auto path = folder / "list.plist";
  ASSERT_TRUE(writePropertyList(everyType(), path, PropertyListFormat::xml));
  ASSERT_TRUE(writePropertyList({{"a", 1}}, path, PropertyListFormat::binary));
  const auto read = readPropertyList(path);
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, (PreferenceDictionary{{"a", 1}}));
  EXPECT_THAT(readPropertyList(folder / "absent").error().message, HasSubstr("absent"));
  EXPECT_FALSE(readPropertyList(folder));
  EXPECT_FALSE(writePropertyList({}, folder, PropertyListFormat::xml));
  EXPECT_FALSE(writePropertyList({}, folder / "no" / "list", PropertyListFormat::xml));
}

}  // namespace
}  // namespace foundation
