// SPDX-License-Identifier: MIT
#include "foundation/Files.hpp"
#include "foundation/PropertyList.hpp"
#include "support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>
#include <vector>

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
      {"infinite", std::numeric_limits<double>::infinity()},
      {"text", "a < b & ]]> \u00e9 \U0001F600\n\t\r"},
      {"no text", ""},
      {"data", PreferenceValue::Bytes{0, 1, 2, 0xFF}},
      {"no data", PreferenceValue::Bytes{}},
      {"date", date(1'600'000'000)},
      {"early", date(-62'167'219'200)},
      {"late", date(253'402'300'799)},
      {"array", PreferenceValue::Array{1, true, "x", PreferenceValue::Array{}}},
      {"dictionary",
       PreferenceDictionary{{"", PreferenceDictionary{}}, {"\u00fc", PreferenceValue::Bytes{7}}}},
  };
}

std::string repeated(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

std::string xml(const std::string& body) {
  return "<?xml version=\"1.0\"?>\n<plist version=\"1.0\">" + body + "</plist>";
}
// A list with one value, in its third line.
std::string xmlValue(const std::string& value) {
  return xml("<dict>\n<key>k</key>" + value + "</dict>");
}

std::string bigEndian(std::uint64_t number, int bytes) {
  std::string text;
  while (bytes-- > 0) text += static_cast<char>(number >> (8 * bytes) & 0xFFU);
  return text;
}

// A binary list of these objects, of which the first is the list. References take two bytes.
std::string binary(const std::vector<std::string>& objects) {
  std::string list = "bplist00";
  std::string table;
  for (const std::string& object : objects) {
    table += bigEndian(list.size(), 4);
    list += object;
  }
  const std::size_t tableAt = list.size();
  return list + table + std::string(6, '\0') + "\x04\x02" + bigEndian(objects.size(), 8) +
         bigEndian(0, 8) + bigEndian(tableAt, 8);
}
std::string references(std::initializer_list<unsigned> numbers) {
  std::string text;
  for (const unsigned number : numbers) text += bigEndian(number, 2);
  return text;
}
const std::string kOneKey = "\xD1" + references({1, 2});
// A list with one value, object 2.
std::string binaryValue(const std::string& object) { return binary({kOneKey, "\x51k", object}); }

class PropertyListFiles : public testing::Test {
protected:
  // What becomes of a file with these contents.
  Result<PreferenceDictionary> read(const std::string& contents) {
    EXPECT_TRUE(writeFile(path, contents));
    return readPropertyList(path);
  }

  support::TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / "list.plist";
};

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
  for (const double seconds : {978307200.25, 978307198.5, 1.75, -1.75, 1e18}) {
    const auto bytes = propertyListBytes({{"date", date(seconds)}}, PropertyListFormat::binary);
    ASSERT_TRUE(bytes);
    const auto read = parsePropertyList(*bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->at("date").asDate()->time_since_epoch().count(), seconds);
  }
}

TEST(PropertyList, RefusesToWriteWhatAFormatCannotHold) {
  PreferenceValue deep = 1;
  for (int i = 0; i <= kMaximumPropertyListDepth; ++i) deep = PreferenceValue::Array{deep};
  const std::string nul("a\0b", 3);
  const std::vector<std::pair<PreferenceDictionary, bool>> listsAndWhetherBinaryHoldsThem = {
      {{{"k", nul}}, false},        {{{"k", "\xFF"}}, false},  {{{"k", deep}}, false},
      {{{"k", date(NAN)}}, false},  {{{nul, 1}}, false},       {{{"k", "\x01"}}, true},
      {{{"k", date(1e18)}}, true},  {{{"k", "\uFFFE"}}, true}, {{{"\x1b", 1}}, true},
      {{{"k", date(-1e11)}}, true},
  };
  for (const auto& [list, doesBinaryHoldIt] : listsAndWhetherBinaryHoldsThem) {
    EXPECT_FALSE(propertyListBytes(list, PropertyListFormat::xml));
    EXPECT_EQ(static_cast<bool>(propertyListBytes(list, PropertyListFormat::binary)),
              doesBinaryHoldIt);
  }
  const PreferenceValue::Array many(kMaximumPropertyListValues, PreferenceValue(1));
  EXPECT_THAT(propertyListBytes({{"k", many}}, PropertyListFormat::binary).error().message,
              HasSubstr("1048576 values"));
}

TEST_F(PropertyListFiles, XMLIsReadAsOtherWritersFormIt) {
  const std::vector<std::pair<std::string, PreferenceValue>> valuesOfTexts = {
      {"<integer> -0x8000000000000000\n</integer>", std::numeric_limits<std::int64_t>::min()},
      {"<integer>+7</integer>", 7},
      {"<real>+infinity</real>", std::numeric_limits<double>::infinity()},
      {"<real>\n1e3 </real>", 1000.0},
      {"<date>2019-05-17T08:30:12.5Z</date>", date(1'558'081'812.5)},
      {"<data>\n\tAP\n\t8=\n</data>", PreferenceValue::Bytes{0, 0xFF}},
      {"<string>a<!-- no --><![CDATA[<b>]]>&amp;&#65;</string>", "a<b>&A"},
      {"<true></true>", true},
      {"<!-- <array> --><false/>", false},
  };
  for (const auto& [text, value] : valuesOfTexts) {
    const auto list = read(xmlValue(text));
    ASSERT_TRUE(list) << text << ": " << list.error().message;
    EXPECT_EQ(list->at("k"), value) << text;
  }
  for (const std::string& list :
       {"\xEF\xBB\xBF" + xmlValue("<true/>"),
        std::string("<dict><key>k</key><false/><key>k</key><true/></dict>"),
        "<?xml version=\"1.0\"?><!DOCTYPE plist SYSTEM \"list.dtd\">" +
            xmlValue("<true/>").substr(22)}) {
    const auto values = read(list);
    ASSERT_TRUE(values) << list << ": " << values.error().message;
    EXPECT_EQ(*values, (PreferenceDictionary{{"k", true}})) << list;
  }
}

TEST_F(PropertyListFiles, WrongXMLIsRefusedWithItsLineAndKey) {
  const std::vector<std::string> wrongValues = {
      "<integer/>",
      "<integer>12 points</integer>",
      "<integer>9223372036854775808</integer>",
      "<integer>-9223372036854775809</integer>",
      "<integer>0x</integer>",
      "<integer>--1</integer>",
      "<integer>1.0</integer>",
      "<real/>",
      "<real>1,5</real>",
      "<real>1e999</real>",
      "<real>+-1</real>",
      "<real>1.5.2</real>",
      "<date/>",
      "<date>yesterday</date>",
      "<date>2019-02-29T00:00:00Z</date>",
      "<date>2019-05-17T24:00:00Z</date>",
      "<date>2019-05-17T08:30:12</date>",
      "<date>2019-05-17T08:30:125Z</date>",
      "<date>2019-05-17</date>",
      "<data>AP8</data>",
      "<data>A*8=</data>",
      "<data>AP9=</data>",
      "<null/>",
      "<string><b>x</b></string>",
      "<true>yes</true>",
      "",
      "text<true/>",
      "<string>&nothing;</string>",
      "<string>&#1;</string>",
      "<array><integer>x</integer></array>",
  };
  for (const std::string& value : wrongValues) {
    const auto list = read(xmlValue(value));
    ASSERT_FALSE(list) << value;
    EXPECT_THAT(list.error().message, HasSubstr("line 3, under the key “k”")) << value;
    EXPECT_THAT(list.error().message, HasSubstr(path.string())) << value;
  }
  const auto nested = read(xmlValue(
      "<dict><key>a</key><array>\n<dict><key>b</key><date>x</date></dict></array></dict>"));
  ASSERT_FALSE(nested);
  EXPECT_THAT(nested.error().message,
              HasSubstr("line 4, under the key “k” with “b” in it: this is no date"));

  for (const std::string& list :
       {xml("<dict><true/></dict>"), xml("<dict/><dict/>"), xml("<array/>"),
        xml("<string>x</string>"), xml(""), xml("<key>k</key>"), xml("<plist><dict/></plist>"),
        xml("<dict><key>k</key><key>l</key><true/></dict>"), xml("<array><key>k</key></array>"),
        xmlValue("<true/>") + "x", xmlValue("<true/>").substr(0, 60),
        std::string("<!DOCTYPE plist [<!ENTITY a \"b\">]><plist><dict/></plist>"),
        std::string("<!DOCTYPE plist ["), std::string(), std::string("x"),
        std::string("{ k = 1; }"), std::string(R"({"k": 1})")}) {
    EXPECT_FALSE(read(list)) << list;
  }
}

TEST_F(PropertyListFiles, DeepXMLIsRefusedWithAnyProlog) {
  const int deep = 200'000;
  const std::string arrays = repeated(deep, "<array>");
  EXPECT_TRUE(read(xmlValue(repeated(513, "<array>") + repeated(513, "</array>"))));
  for (const std::string& list : {
           xmlValue(repeated(514, "<array>") + repeated(514, "</array>")),
           xmlValue(arrays + repeated(deep, "</array>")),
           xmlValue(repeated(deep, "<dict><key>a</key>") + "<true/>" + repeated(deep, "</dict>")),
           "<?xml version=\"1.0\"?><?x > <!-- ?>" + arrays,
           "<?xml > <!-- ?>" + arrays,
           "<?xml > <![CDATA[ ?>" + arrays,
           "<!DOCTYPE plist SYSTEM \"> <!--\">" + arrays,
           "<plist version=\"> <!-- \">" + arrays,
           "<plist><dict><key a='> <![CDATA['>k</key>" + arrays,
           "<plist><dict><key>k</key>" + repeated(deep, "<array a='/'>"),
           "<plist><dict><key>k</key>" + repeated(deep, "<array\v>"),
       }) {
    EXPECT_FALSE(read(list)) << list.substr(0, 80);
  }
}

TEST_F(PropertyListFiles, BinaryIsReadAsOtherWritersFormIt) {
  const std::vector<std::pair<std::string, PreferenceValue>> valuesOfObjects = {
      {"\x10\xFF", 255},
      {"\x11\x80" + std::string(1, '\0'), 0x8000},
      {"\x13" + std::string(8, '\xFF'), -1},
      {"\x14" + std::string(15, '\0') + "\x05", 5},
      {"\x14" + std::string(16, '\xFF'), -1},
      {std::string("\x22\x3F\xC0\0\0", 5), 1.5},
      {std::string("\x33") + std::string(8, '\0'), date(978'307'200)},
      {std::string("\x62\xD8\x3D\xDE\x00", 5), "\U0001F600"},
      {"\x5F\x10\x10" + std::string(16, 'x'), std::string(16, 'x')},
      {std::string("\xC1", 1) + references({1}), PreferenceValue::Array{"k"}},
  };
  for (const auto& [object, value] : valuesOfObjects) {
    const auto list = read(binaryValue(object));
    ASSERT_TRUE(list) << list.error().message;
    EXPECT_EQ(list->at("k"), value);
  }
}

TEST_F(PropertyListFiles, WrongBinaryIsRefusedWithItsObjectAndKey) {
  const std::vector<std::string> wrongObjects = {
      std::string("\x00", 1),
      "\x0F",
      "\x80\x01",
      "\x14" + std::string(7, '\0') + "\x01" + std::string(8, '\0'),
      "\x14" + std::string(8, '\0') + std::string(8, '\xFF'),
      "\x15" + std::string(32, '\0'),
      "\x13\x01",
      "\x21\x01\x01",
      "\x23\x01",
      "\x32\x01\x01\x01\x01",
      "\x33\x7F\xF8" + std::string(6, '\0'),
      "\x33\x01",
      "\x51\xFF",
      "\x5F\x10\x20x",
      "\x5F\x23x",
      "\x5F",
      "\x4F\x13" + std::string(8, '\xFF'),
      std::string("\x52\0a", 3),
      "\x61\xD8\x3D",
      "\x71x",
      "\xF1",
      std::string("\xA1", 1),
      "\xA1" + references({2}),
      "\xA1" + references({9}),
      "\xD1" + references({2, 2}),
      "\xD1" + references({1, 2}),
      "\xAF\x12\x7F\xFF\xFF\xFF",
  };
  for (const std::string& object : wrongObjects) {
    const auto list = read(binaryValue(object));
    ASSERT_FALSE(list) << testing::PrintToString(object);
    EXPECT_THAT(list.error().message, HasSubstr("object ")) << testing::PrintToString(object);
    EXPECT_THAT(list.error().message, HasSubstr("under the key “k”"))
        << testing::PrintToString(object);
  }
  // A key that is no text, and one that would lead deeper without an end.
  EXPECT_FALSE(read(binary({"\xD1" + references({1, 2}), "\x10\x01", "\x09"})));
  EXPECT_FALSE(read(binary({"\xD1" + references({0, 0})})));
  EXPECT_FALSE(read(binary({"\xA0"})));
  const std::string whole = binaryValue("\x09");
  EXPECT_TRUE(read(whole));
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_FALSE(read(whole.substr(0, length))) << length;
  for (std::size_t at = whole.size() - 26; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = '\x7F';
    EXPECT_FALSE(read(damaged)) << at;
  }
}

TEST_F(PropertyListFiles, BinaryThatUnfoldsIsRefusedBeforeItTakesMemory) {
  // Each object holds the next one twice.
  const auto doubling = [](unsigned levels, const std::string& last) {
    std::vector<std::string> objects = {kOneKey, "\x51k"};
    for (unsigned i = 0; i < levels; ++i) objects.push_back("\xA2" + references({i + 3, i + 3}));
    objects.push_back(last);
    return binary(objects);
  };
  EXPECT_TRUE(read(doubling(18, "\x09")));
  EXPECT_THAT(read(doubling(20, "\x09")).error().message,
              HasSubstr("unfolds to more than 1048576 values"));
  EXPECT_THAT(read(doubling(500, "\x09")).error().message,
              HasSubstr("unfolds to more than 1048576 values"));
  const std::string page = "\x4F\x11\x10" + std::string(1, '\0') + std::string(4096, 'x');
  EXPECT_TRUE(read(doubling(13, page)));
  EXPECT_THAT(read(doubling(15, page)).error().message,
              HasSubstr("unfolds to far more text and data"));

  // As deep as is allowed, by way of an object that was read before at a lower depth.
  std::vector<std::string> chain = {"\xD2" + references({1, 2, 4, 3}),
                                    "\x51"
                                    "a",
                                    "\x51"
                                    "b"};
  for (unsigned i = 0; i < 512; ++i) chain.push_back("\xA1" + references({i + 4}));
  chain.emplace_back("\x09");
  EXPECT_TRUE(read(binary(chain)));
  chain.insert(chain.end() - 1, "\xA1" + references({516}));
  EXPECT_THAT(read(binary(chain)).error().message, HasSubstr("deeper than 512 levels"));
}

TEST_F(PropertyListFiles, AreReplacedInOneStep) {
  ASSERT_TRUE(writePropertyList(everyType(), path, PropertyListFormat::xml));
  ASSERT_TRUE(writePropertyList({{"a", 1}}, path, PropertyListFormat::binary));
  const auto list = readPropertyList(path);
  ASSERT_TRUE(list);
  EXPECT_EQ(*list, (PreferenceDictionary{{"a", 1}}));
  EXPECT_THAT(readPropertyList(folder.path() / "absent").error().message, HasSubstr("absent"));
  EXPECT_FALSE(readPropertyList(folder.path()));
  EXPECT_FALSE(writePropertyList({}, folder.path(), PropertyListFormat::xml));
  EXPECT_FALSE(writePropertyList({}, folder.path() / "no" / "list", PropertyListFormat::xml));
}

}  // namespace
}  // namespace foundation
