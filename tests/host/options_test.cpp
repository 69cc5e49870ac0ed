// SPDX-License-Identifier: MIT
#include "commands/Options.hpp"
#include "commands/Commands.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <any>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace zorvantine;
using foundation::PropertyListFormat;
using QEVSettings::PreferenceValue;
using testing::HasSubstr;

using Words = std::vector<std::string_view>;

template <class C>
C commandOf(const Words& words) {
  const auto options = parseOptions(words);
  if (!options) throw std::runtime_error(options.error().message);
  return *std::any_cast<std::shared_ptr<C>>(options->invocation.command);
}

TEST(CommandLine, NoCommandStandsForSettings) {
  const auto command = commandOf<SettingsCommand>({});
  EXPECT_EQ(command.tab, Tab::general);
  EXPECT_EQ(command.window, WindowOptions{});
}

TEST(CommandLine, WindowOptionsAreReadByEveryCommandOfTheWindow) {
  const WindowOptions expected{
      .hasProxyTab = false, .syntheticAnalyzers = 10000, .language = "zh-Hans"};
  const Words rest{"--no-proxy", "--analyzers", "10000", "--language=zh-Hans"};
  const auto with = [&](Words words) {
    words.insert(words.end(), rest.begin(), rest.end());
    return words;
  };
  EXPECT_EQ(commandOf<SettingsCommand>(with({"--tab", "appearance"})).window, expected);
  EXPECT_EQ(commandOf<DescribeCommand>(with({"describe"})).window, expected);
  const auto snapshot = commandOf<SnapshotCommand>(
      with({"snapshot", "--out=pictures", "--tab", "all", "--appearance", "dark", "--scale", "2"}));
  EXPECT_EQ(snapshot.window, expected);
  EXPECT_EQ(snapshot.folder, "pictures");
  EXPECT_EQ(snapshot.tab, std::nullopt);
  EXPECT_EQ(snapshot.appearance, Appearance::dark);
  EXPECT_EQ(snapshot.scale, 2);
}

TEST(CommandLine, StoreMayComeBeforeOrAfterTheCommand) {
  for (const Words& words :
       {Words{"--store", "a.sqlite", "prefs", "list"}, Words{"prefs", "list", "--store=a.sqlite"},
        Words{"--store=a.sqlite", "prefs", "get", "--", "--key"}}) {
    const auto options = parseOptions(words);
    ASSERT_TRUE(options) << options.error().message;
    EXPECT_EQ(options->store, "a.sqlite");
  }
}

TEST(CommandLine, ValueAfterAnOptionIsReadByItsType) {
  const std::vector<std::pair<Words, PreferenceValue>> cases{
      {{"--int", "-9223372036854775808"}, std::int64_t{INT64_MIN}},
      {{"--real", "-1.5e3"}, -1500.0},
      {{"--bool", "false"}, false},
      {{"--string", "--store"}, "--store"},
      {{"--string="}, ""},
      {{"--string", "häuser"}, "häuser"},
      {{"--data", "AQID"}, PreferenceValue::Bytes{1, 2, 3}},
      {{"--data", ""}, PreferenceValue::Bytes{}},
      {{"--date", "1970-01-02T00:00:00.5Z"},
       PreferenceValue::Date(std::chrono::duration<double>(86400.5))},
      {{"--json", R"({"a": [1, 1.0, true], "b": "c"})"},
       PreferenceValue::Dictionary{{"a", PreferenceValue::Array{1, 1.0, true}}, {"b", "c"}}},
  };
  for (const auto& [value, expected] : cases) {
    Words words{"prefs", "set", "key"};
    words.insert(words.end(), value.begin(), value.end());
    const auto command = commandOf<SetPreferenceCommand>(words);
    EXPECT_EQ(command.key, "key");
    EXPECT_EQ(command.value, expected) << value.back();
  }
}

TEST(CommandLine, FormatIsReadByItsCommand) {
  EXPECT_EQ(commandOf<ListPreferencesCommand>({"prefs", "list", "--format", "json"}).format,
            OutputFormat::json);
  EXPECT_EQ(
      commandOf<ExportPreferencesCommand>({"prefs", "export", "--format", "binary", "f"}).format,
      PropertyListFormat::binary);
  EXPECT_EQ(commandOf<ValidatePortsCommand>({"ports", "validate", "-"}).text, "-");
}

TEST(CommandLine, HelpOptionIsObeyedBeforeOtherErrors) {
  for (const Words& words : {Words{"--help"}, Words{"-h"}, Words{"help"}, Words{"prefs", "--help"},
                             Words{"prefs", "set", "--help"}, Words{"snapshot", "-h"}}) {
    EXPECT_NO_THROW(commandOf<HelpCommand>(words)) << words.back();
  }
  // Not where it is a value.
  EXPECT_EQ(commandOf<SetPreferenceCommand>({"prefs", "set", "k", "--string", "--help"}).value,
            "--help");
}

TEST(CommandLine, ErrorNamesWhatIsWrong) {
  const std::vector<std::pair<Words, std::string>> cases{
      {{"setings"}, "“setings”"},
      {{""}, "no command"},
      {{"prefs"},
       "list, describe, get, set, reset, diff, edit, delete, import, export, migrate, watch, "
       "history, undo or verify"},
      {{"prefs", "show"}, "list, describe, get, set"},
      {{"prefs", "get"}, "a KEY"},
      {{"prefs", "get", ""}, "a key is text"},
      {{"prefs", "get", "\xff"}, "a key is text"},
      {{"prefs", "get", "a", "b"}, "“b”"},
      {{"prefs", "get", "a", "--format", "json"}, "no option --format"},
      {{"prefs", "set", "k"}, "--string, --int, --bool, --real, --data, --date or --json"},
      {{"prefs", "set", "k", "--int", "1", "--bool", "true"}, "one value"},
      {{"prefs", "set", "k", "--int", "0x10"}, "“0x10” is not"},
      {{"prefs", "set", "k", "--int", " 1"}, "is not"},
      {{"prefs", "set", "k", "--int", ""}, "is not"},
      {{"prefs", "set", "k", "--int", "9223372036854775808"}, "beyond the limits"},
      {{"prefs", "set", "k", "--real", "1,5"}, "is not a real number"},
      {{"prefs", "set", "k", "--real", "1e999"}, "beyond the limits"},
      {{"prefs", "set", "k", "--bool", "1"}, "neither true nor false"},
      {{"prefs", "set", "k", "--data", "AQI"}, "base64"},
      {{"prefs", "set", "k", "--string", "\xc3"}, "UTF-8"},
      {{"prefs", "import"}, "a FILE"},
      {{"prefs", "import", ""}, "a FILE"},
      {{"prefs", "export", "f", "--format", "json"}, "xml or binary"},
      {{"--store"}, "--store needs a value"},
      {{"--store=", "prefs", "list"}, "--store needs"},
      {{"--tab", "fonts"}, "general, capture, proxy, analyze or appearance"},
      {{"--tab", "all"}, "general"},
      {{"--tab", "proxy", "--no-proxy"}, "--no-proxy"},
      {{"--no-proxy=yes"}, "takes no value"},
      {{"--analyzers", "-1"}, "0 to 1000000"},
      {{"--analyzers", "ten"}, "0 to 1000000"},
      {{"--language", "../de"}, "a code"},
      {{"--language", "xx"}, "en, de, fr, es, ja, zh-Hans or ar"},
      {{"prefs", "set", "k", "--real", "nan"}, "is not a real number"},
      {{"prefs", "set", "k", "--date", "2026-02-30T12:00:00Z"}, "is no date"},
      {{"prefs", "set", "k", "--date", "2026-02-03T24:00:00Z"}, "is no date"},
      {{"prefs", "set", "k", "--json", "[1, null]"}, "null"},
      {{"prefs", "set", "k", "--json", "{"}, "not JSON"},
      {{"prefs", "watch", ""}, "a key is text"},
      {{"snapshot"}, "--out DIR"},
      {{"snapshot", "--out", "d", "--scale", "1.5"}, "1 or 2"},
      {{"describe", "--format", "xml"}, "text or json"},
      {{"ports"}, "validate"},
      {{"ports", "validate"}, "a TEXT"},
  };
  for (const auto& [words, expected] : cases) {
    const auto options = parseOptions(words);
    EXPECT_THAT(options ? "understood" : options.error().message, HasSubstr(expected));
  }
}

}  // namespace
