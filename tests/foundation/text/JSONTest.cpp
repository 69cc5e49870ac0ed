// SPDX-License-Identifier: MIT
#include "foundation/JSON.hpp"

#include "foundation/JSONWriter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>
#include <string>
#include <vector>

namespace foundation {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

JSON parsed(std::string_view text) {
  auto json = JSON::parse(std::string(text));
  EXPECT_TRUE(json) << text << ": " << json.error().message;
  return json ? *json : *JSON::parse("null");
}

TEST(JSON, KeepsWhatItReads) {
  struct Case {
    const char* text;
    const char* compact;
  };
  for (const auto& [text, compact] : {
           Case{R"([1, 1.0, 1.00, -0, 1e400, 1E+05, 12345678901234567890123])",
                R"([1,1.0,1.00,-0,1e400,1E+05,12345678901234567890123])"},
           Case{R"({"z": 1, "a": {"y": [], "b": {}}, "": null})",
                R"({"z":1,"a":{"y":[],"b":{}},"":null})"},
           Case{R"("\u00e9 \ud83d\ude00 \/ \\ \"")", R"("\u00e9 \ud83d\ude00 \/ \\ \"")"},
           Case{"\xEF\xBB\xBF\t\r\n true \n", "true"},
           Case{R"({"a": 1, "b": [2], "a": {"c": [3, 4]}, "b": 5, "d": 6})",
                R"({"a":{"c":[3,4]},"b":5,"d":6})"},
           Case{R"([{"a": 1, "\u0061": 2}])", R"([{"a":2}])"},
       }) {
    EXPECT_EQ(parsed(text).text(), compact);
  }
}

TEST(JSON, ResolvesManyNamesOccurringTwice) {
  std::string text = "{";
  for (int i = 0; i < 2000; ++i)
    text += "\"name" + std::to_string(i % 1000) + "\":[" + std::to_string(i) + "],";
  text.back() = '}';
  const JSON object = parsed(text);
  int expected = 1000;
  for (const auto& [name, value] : object.members()) {
    EXPECT_EQ(name, "name" + std::to_string(expected - 1000));
    EXPECT_EQ(value.text(), "[" + std::to_string(expected) + "]");
    ++expected;
  }
  EXPECT_EQ(expected, 2000);
}

TEST(JSON, ReadsNumbers) {
  struct Case {
    const char* text = nullptr;
    const char* integer = nullptr;  // null when not integral
    std::optional<std::int64_t> fitting;
    std::optional<double> real;
  };
  const std::string huge = "1" + std::string(400, '0');
  for (const Case& number : {
           Case{"80", "80", 80, 80},
           Case{"-80", "-80", -80, -80},
           Case{"80.0", "80", 80, 80},
           Case{"8e1", "80", 80, 80},
           Case{"0.08e+3", "80", 80, 80},
           Case{"8000E-2", "80", 80, 80},
           Case{"-0", "0", 0, -0.0},
           Case{"0e99999999999999999999", "0", 0, 0.0},
           Case{"0.5", nullptr, std::nullopt, 0.5},
           Case{"1e-400", nullptr, std::nullopt, 0.0},
           Case{"1e400", huge.c_str(), std::nullopt, std::nullopt},
           Case{"1e99999999999999999999", nullptr, std::nullopt, std::nullopt},
           Case{"9223372036854775807", "9223372036854775807", INT64_MAX, 9223372036854775808.0},
           Case{"9223372036854775808", "9223372036854775808", std::nullopt, 9223372036854775808.0},
       }) {
    const JSON json = parsed(number.text);
    EXPECT_EQ(json.numberText(), number.text);
    EXPECT_EQ(json.integerText(),
              number.integer != nullptr ? std::optional<std::string>(number.integer) : std::nullopt)
        << number.text;
    EXPECT_EQ(json.asInteger(), number.fitting) << number.text;
    EXPECT_EQ(json.asReal(), number.real) << number.text;
  }
}

TEST(JSON, ReadsStringsAndMembers) {
  const JSON object = parsed(
      R"({"text": "a\u0000\u00e9\ud83d\ude00\n\/", "\u0074wo": true, "none": null, "list": [1]})");
  EXPECT_EQ(object.member("text")->asString(), std::string("a\0\u00e9\U0001F600\n/", 10));
  EXPECT_EQ(object.member("two")->asBoolean(), true);
  EXPECT_TRUE(object.member("none")->isNull());
  EXPECT_FALSE(object.member("absent"));
  EXPECT_FALSE(object.member("list")->member("0"));
  const JSON small = parsed(R"({"a":"b"})");
  EXPECT_FALSE(small.member(R"(a":"b)")) << "a name ends at its quote";
  EXPECT_FALSE(small.member(R"(a":"b"})"));
  EXPECT_FALSE(object.member("text")->asInteger());
  EXPECT_FALSE(object.asString());
  std::vector<std::string> names;
  for (const JSON::Member& member : object.members()) names.push_back(member.name);
  EXPECT_THAT(names, ElementsAre("text", "two", "none", "list"));
  EXPECT_TRUE(object.elements().isEmpty());
}

TEST(JSON, ValueOutlivesItsDocument) {
  std::optional<JSON> inner;
  {
    const JSON outer = parsed(R"({"a": [{"b": "kept"}]})");
    inner = outer.member("a");
  }
  EXPECT_EQ(inner->text(), R"([{"b":"kept"}])");
}

TEST(JSON, RefusesTextThatIsNotJSON) {
  for (const std::string text : {"",
                                 " ",
                                 "[",
                                 "[1",
                                 "[1,",
                                 "[1,]",
                                 "{",
                                 R"({"a")",
                                 R"({"a":)",
                                 R"({"a":1,})",
                                 "{a:1}",
                                 "{1:1}",
                                 "tru",
                                 "nul",
                                 "+1",
                                 "01",
                                 "-",
                                 "1.",
                                 ".5",
                                 "1e",
                                 "1e+",
                                 "[1]x",
                                 "[1 2]",
                                 "'a'",
                                 R"(")",
                                 R"("\)",
                                 R"("\x")",
                                 R"("\u12")",
                                 R"("\u12g4")",
                                 R"("\ud800")",
                                 R"("\ud800\n")",
                                 R"("\udc00")",
                                 R"("\ud800\u0041")",
                                 "\"\t\"",
                                 "\"\x80\"",
                                 "\"\xC0\xAF\"",
                                 "\"\xED\xA0\x80\"",
                                 "\"\xF4\x90\x80\x80\"",
                                 "\"\xE2\x82\"",
                                 "NaN",
                                 "[1]]",
                                 "\xFF\xFE["}) {
    const auto json = JSON::parse(text);
    ASSERT_FALSE(json) << text;
    EXPECT_THAT(json.error().message, HasSubstr("byte"));
  }
}

TEST(JSON, RefusesDeeperNestingThanAllowed) {
  const auto nested = [](int depth, const char* open, const char* close) {
    std::string text;
    for (int i = 0; i < depth; ++i) text += open;
    text += "1";
    for (int i = 0; i < depth; ++i) text += close;
    return text;
  };
  EXPECT_EQ(parsed(nested(512, "[", "]")).text(), nested(512, "[", "]"));
  for (const int depth : {513, 10'000, 10'000'000}) {
    const auto json = JSON::parse(nested(depth, "[", "]"));
    ASSERT_FALSE(json);
    EXPECT_THAT(json.error().message, HasSubstr("512"));
  }
  EXPECT_FALSE(JSON::parse(nested(10'000, R"({"a":)", "}")));
}

// Any text is read, or refused, as an independent reader does.
TEST(JSON, AgreesWithAnotherReader) {
  std::mt19937 random(7);
  const std::string_view pieces[] = {"[",
                                     "]",
                                     "{",
                                     "}",
                                     ",",
                                     ":",
                                     R"("a")",
                                     R"("\u0061")",
                                     "1",
                                     "-2.5e3",
                                     "true",
                                     " ",
                                     "null",
                                     "\"\xC3\xA9\"",
                                     R"("\)",
                                     "0",
                                     "e",
                                     R"("b":)",
                                     R"("\ud83d\ude00")",
                                     "\x80"};
  int read = 0;
  for (int round = 0; round < 100'000; ++round) {
    std::string text;
    for (unsigned i = random() % 10; i > 0; --i) text += pieces[random() % std::size(pieces)];
    std::optional<nlohmann::json> other;
    try {
      other = nlohmann::json::parse(text);
    } catch (const nlohmann::json::out_of_range&) {
      continue;  // the other reader has no number so large
    } catch (const nlohmann::json::parse_error&) {
      other.reset();
    }
    const auto ours = JSON::parse(text);
    ASSERT_EQ(static_cast<bool>(ours), other.has_value()) << text;
    if (!ours) continue;
    ++read;
    ASSERT_EQ(nlohmann::json::parse(ours->text()), *other) << text;
  }
  EXPECT_GT(read, 1000);
}

TEST(JSONWriter, WritesEveryKind) {
  JSONWriter writer;
  writer.beginArray()
      .beginObject()
      .name("a\"\\\n\x01")
      .integer(INT64_MIN)
      .name("b")
      .real(0.1)
      .endObject();
  writer.beginArray()
      .endArray()
      .boolean(true)
      .null()
      .string("\u00e9\x7f\xFF")
      .value(parsed("[1.00, {\"x\": 2}]"));
  writer.real(1.0 / 0.0).endArray();
  const std::string text = writer.takeText();
  EXPECT_EQ(text,
            "[{\"a\\\"\\\\\\n\\u0001\":-9223372036854775808,\"b\":0.1},[],true,null,"
            "\"\u00e9\x7f\uFFFD\",[1.00,{\"x\":"
            "2}],null]");
  EXPECT_EQ(parsed(text).text(), text);
  EXPECT_EQ(writer.string("anew").text(), "\"anew\"");
}

TEST(JSONWriter, PutsAStringInPlaceOfAMember) {
  const auto written = [](std::string_view object) {
    return JSONWriter().object(parsed(object), "port", "5\"3").takeText();
  };
  EXPECT_EQ(written(R"({"ports": 1, "port" : [2, {"port": 3}], "x": {"port": 4}})"),
            R"({"ports":1,"port":"5\"3","x":{"port":4}})");
  EXPECT_EQ(written(R"({"p\u006frt": 1})"), R"({"p\u006frt":"5\"3"})");
  EXPECT_EQ(written(R"({"po": 1, "porty": 2})"), R"({"po":1,"porty":2})");
  EXPECT_EQ(written("{}"), "{}");
  EXPECT_EQ(written("[1]"), "[1]");
}

}  // namespace
}  // namespace foundation
