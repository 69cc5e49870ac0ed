// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceCatalogue.hpp"

#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <utility>

namespace QEVSettings {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Optional;
using Type = PreferenceValue::Type;

PreferenceDescriptor number(const std::string& key) {
  return {.key = key,
          .type = Type::integer,
          .defaultValue = 3,
          .limits = IntegerRange{1, 10},
          .title = "Number",
          .purpose = "A number."};
}

TEST(PreferenceCatalogue, FixedKeysAreDescribedWithDefaultsThatFitAndTexts) {
  const PreferenceCatalogue catalogue = fixedCatalogue();
  constexpr std::array keys{kPrefsSchemaVersion.name,  kAnalyzerSelectedIndex.name,
                            kAppearanceName.name,      kAppearanceUseSystem.name,
                            kPrefTimezoneString.name,  kFontPacketTable.name,
                            kFontProtocolDetails.name, kFontBaseProtocolStatistics.name,
                            kFontDataSourcesList.name, kFontDataSourcesHead.name,
                            kFontConsoleRaw.name,      kKeepsHistory.name};
  EXPECT_EQ(catalogue.size(), keys.size());
  for (const std::string_view key : keys) {
    SCOPED_TRACE(key);
    const auto* const known = catalogue.find(key);
    ASSERT_NE(known, nullptr);
    EXPECT_FALSE(known->title.empty());
    EXPECT_THAT(known->purpose, testing::EndsWith("."));
    EXPECT_TRUE(!known->defaultValue || !misfit(*known, *known->defaultValue));
  }
  EXPECT_FALSE(catalogue.find(kPrefsSchemaVersion.name)->isLockable);
}

TEST(PreferenceCatalogue, ValueThatDoesNotFitIsToldWhatWould) {
  const PreferenceCatalogue catalogue = fixedCatalogue();
  const std::pair<std::string_view, PreferenceValue> wrong[]{
      {kAppearanceUseSystem.name, "banana"},
      {kAppearanceName.name, "NSAppearanceNameBlue"},
      {kAnalyzerSelectedIndex.name, -1},
      {kPrefTimezoneString.name, ""},
      {kFontConsoleRaw.name, PreferenceDictionary{{"family", "Mono"}, {"pointSize", 1001}}},
      {kFontConsoleRaw.name, PreferenceDictionary{{"family", "Mono"}}},
      {kFontConsoleRaw.name, "Mono"},
  };
  for (const auto& [key, value] : wrong)
    EXPECT_NE(misfit(*catalogue.find(key), value), std::nullopt);
  EXPECT_EQ(misfit(*catalogue.find(kFontConsoleRaw.name),
                   PreferenceDictionary{{"family", "Mono"}, {"pointSize", 11}}),
            std::nullopt);
  EXPECT_THAT(misfit(number("key"), 11), Optional(HasSubstr("from 1 to 10")));
  EXPECT_THAT(misfit(number("key"), true), Optional(HasSubstr("a whole number")));
}

TEST(PreferenceCatalogue, BadDescriptorIsRefusedInOneLineAndTheFirstOfTwoStays) {
  PreferenceCatalogue catalogue;
  ASSERT_EQ(catalogue.add(number("key")), std::nullopt);
  PreferenceDescriptor second = number("key");
  second.title = "Another";
  PreferenceDescriptor wrongDefault = number("wrong default");
  wrongDefault.defaultValue = "three";
  PreferenceDescriptor longTitle = number("long title");
  longTitle.title = std::string(std::size_t{1} << 20, 'x');

  EXPECT_THAT(catalogue.add(second), Optional(HasSubstr("the first stays")));
  EXPECT_THAT(catalogue.add(wrongDefault), Optional(HasSubstr("from 1 to 10")));
  EXPECT_THAT(catalogue.add(longTitle), Optional(HasSubstr("bytes")));
  EXPECT_NE(catalogue.add(number("")), std::nullopt);
  EXPECT_EQ(catalogue.size(), 1U);
  EXPECT_EQ(catalogue.find("key")->title, "Number");
}

TEST(PreferenceCatalogue, TenThousandDescriptorsKeepTheirOrderWhenSomeAreRemoved) {
  PreferenceCatalogue catalogue;
  for (int i = 0; i < 10000; ++i)
    ASSERT_EQ(catalogue.add(number("key " + std::to_string(i))), std::nullopt);
  catalogue.remove("key 1");
  ASSERT_EQ(catalogue.all().size(), 9999U);
  EXPECT_EQ(catalogue.all()[1]->key, "key 2");
  EXPECT_EQ(catalogue.all().back()->key, "key 9999");
  EXPECT_EQ(catalogue.find("key 1"), nullptr);
}

TEST(PreferenceCatalogue, MistypedKeyIsNamedWithTheKeyThatItMayStandFor) {
  const PreferenceCatalogue catalogue = fixedCatalogue();
  EXPECT_THAT(catalogue.nearMisses("com_velloquin_zorvantine_apearanceName"),
              ElementsAre(kAppearanceName.name));
  EXPECT_THAT(catalogue.nearMisses("prefTimezoen"), ElementsAre(kPrefTimezoneString.name));
  EXPECT_THAT(catalogue.nearMisses("something else"), IsEmpty());
  EXPECT_THAT(catalogue.nearMisses(std::string(1 << 20, 'x')), IsEmpty());
}

}  // namespace
}  // namespace QEVSettings
