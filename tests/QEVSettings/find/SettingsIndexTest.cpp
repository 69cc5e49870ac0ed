// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingsIndex.hpp"

#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "TestAnalyzers.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/UserDefaults.hpp"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace QEVSettings {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kAppearance = "com_velloquin_zorvantine_appearanceName";
constexpr const char* kConsoleFont = "com_velloquin_zorvantine_fontConsoleRaw";
constexpr const char* kPorts = "com_velloquin_qev_names_protocols";

// The keys with fixed names, and two analyzers.
class TwoAnalyzers final : public SearchedSettings {
public:
  std::vector<PreferenceDescriptor> ownSettings() const override {
    std::vector<PreferenceDescriptor> settings;
    for (const PreferenceDescriptor* each : catalogue_.all()) settings.push_back(*each);
    return settings;
  }
  std::size_t analyzerCount() const override { return 2; }
  SearchedAnalyzer analyzer(std::size_t number) const override {
    AnalyzerSettings settings{.title = number == 0 ? "Names" : "Größe"};
    settings.toggles.push_back({.id = "sums",
                                .defaultsKey = "sums" + std::to_string(number),
                                .labelKey = "Compute checksums"});
    if (number == 1) return {.description = "Measures packets.", .settings = std::move(settings)};
    settings.ports = QEVDependencies::AnalyzerPortsSpec{
        .networkProtocolKey = kPorts,
        .defaultProtocolNames = {},
        .defaultPorts = {protocol("Multicast", "5353", 2), protocol("Plain", "53, 8000-8010", 2)}};
    return {.description = "Asks for names.", .settings = std::move(settings)};
  }

private:
  PreferenceCatalogue catalogue_ = fixedCatalogue();
};

class SettingsIndexTest : public testing::Test {
protected:
  SettingsIndexTest() { foundation::Bundle::setPreferredLanguages({"en"}); }

  std::vector<std::string> titles(std::string_view query) {
    std::vector<std::string> titles;
    for (const FoundSetting& each : find(query)) titles.push_back(each.title);
    return titles;
  }
  std::vector<std::string> keys(std::string_view query) {
    std::vector<std::string> keys;
    for (const FoundSetting& each : find(query)) keys.push_back(each.key);
    return keys;
  }
  std::vector<FoundSetting> find(std::string_view query) {
    SettingsIndex index(std::make_shared<const TwoAnalyzers>());
    index.complete();
    return index.find(query, *store_, 100).best;
  }
  foundation::UserDefaults& store() { return *store_; }

private:
  std::unique_ptr<foundation::UserDefaults> store_ = foundation::UserDefaults::inMemory();
};

TEST_F(SettingsIndexTest, FindsTitlesPurposesTabsValuesAndAnalyzers) {
  EXPECT_THAT(titles("packet time zone"), ElementsAre("Packet time zone"));
  EXPECT_THAT(titles("keeps columns straight"), ElementsAre("Console Font"));
  EXPECT_EQ(titles("capture").front(), "Capture");
  EXPECT_THAT(keys("dark"), ElementsAre(kAppearance));
  EXPECT_THAT(titles("asks for"), ElementsAre("Names"));
}

TEST_F(SettingsIndexTest, FindsProtocolsByNameAndPort) {
  const auto found = find("5353");
  ASSERT_FALSE(found.empty());
  EXPECT_EQ(found[0].title, "Multicast");
  EXPECT_EQ(found[0].key, kPorts);
  EXPECT_EQ(placeText(found[0]), "Analyzer › Names › Ports");
  // A number is in a range of ports, and the whole number comes before a part of one.
  EXPECT_EQ(titles("8005").front(), "Plain");
  EXPECT_EQ(titles("53").front(), "Plain");
}

TEST_F(SettingsIndexTest, IgnoresCaseAndAccents) {
  for (const char* query : {"größe", "GRÖSSE", "grosse", "Gro\u0308\u00dfe"}) {
    EXPECT_EQ(titles(query).front(), "Größe") << query;
  }
  EXPECT_THAT(titles("APPEARANCE"), ElementsAre("Appearance"));
}

TEST_F(SettingsIndexTest, FindsEveryWordSomewhere) {
  const auto found = find("checksums grosse");
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].key, "sums1");
  EXPECT_EQ(found[0].place.tab, "analyze");
  EXPECT_EQ(found[0].place.analyzer, "Größe");
  EXPECT_EQ(placeText(found[0]), "Analyzer › Größe");
  EXPECT_THAT(find("checksums fonts"), IsEmpty());
  EXPECT_THAT(find("  "), IsEmpty());
}

TEST_F(SettingsIndexTest, FindsTheUsersLanguageAndEnglish) {
  foundation::Bundle::setPreferredLanguages({"de"});
  EXPECT_THAT(titles("zeitzone der pakete"), ElementsAre("Zeitzone der Pakete"));
  EXPECT_THAT(titles("packet time zone"), ElementsAre("Zeitzone der Pakete"));
  EXPECT_EQ(titles("dunkel").front(), titles("dark").front());
}

TEST_F(SettingsIndexTest, FindsStoredValues) {
  EXPECT_THAT(find("buenos"), IsEmpty());
  store().setObject("America/Buenos_Aires", "com_velloquin_zorvantine_prefTimezone");
  EXPECT_THAT(titles("buenos"), ElementsAre("Packet time zone"));
  store().setObject(protocolListValue({protocol("Multicast", "9999", 2)}), kPorts);
  EXPECT_THAT(titles("9999"), ElementsAre("Ports"));
}

TEST_F(SettingsIndexTest, FindsChangedSettings) {
  EXPECT_THAT(find("is:changed"), IsEmpty());
  store().setObject(kAppearanceNameDarkAqua, kAppearance);
  store().setBool(false, "sums0");
  store().setObject(
      protocolListValue({protocol("Multicast", "5353", 2), protocol("Plain", "53, 8000-8010", 2)}),
      kPorts);
  EXPECT_THAT(find("is:changed"), IsEmpty()) << "values that are the defaults";
  store().setObject(kAppearanceNameAqua, kAppearance);
  store().setBool(true, "sums0");
  store().setObject(PreferenceDictionary{{"family", "Mono"}, {"pointSize", 11}}, kConsoleFont);
  EXPECT_THAT(keys("is:changed"), ElementsAre(kAppearance, kConsoleFont, "sums0"));
  EXPECT_THAT(keys("sums is:changed"), ElementsAre("sums0"));
  EXPECT_THAT(keys("IS:CHANGED dark"), ElementsAre(kAppearance));
}

TEST_F(SettingsIndexTest, CountsMoreThanItReturns) {
  SettingsIndex index(std::make_shared<const TwoAnalyzers>());
  index.complete();
  const FoundSettings found = index.find("font", store(), 2);
  EXPECT_EQ(found.best.size(), 2U);
  EXPECT_GE(found.count, 6U);
}

TEST_F(SettingsIndexTest, LeavesOutTabsThatTheWindowDoesNotHave) {
  SettingsIndex index(std::make_shared<const TwoAnalyzers>(),
                      [](std::string_view tab) { return tab != "appearance"; });
  index.complete();
  EXPECT_EQ(index.find("font", store(), 10).count, 0U);
}

TEST_F(SettingsIndexTest, FindsWhatIsTakenInSoFar) {
  SettingsIndex index(std::make_shared<const TwoAnalyzers>());
  EXPECT_FALSE(index.isComplete());
  EXPECT_EQ(index.find("appearance", store(), 10).count, 1U);
  EXPECT_EQ(index.find("checksums", store(), 10).count, 0U);
  while (!index.extend(std::chrono::microseconds(1))) {
  }
  EXPECT_EQ(index.find("checksums", store(), 10).count, 2U);
}

}  // namespace
}  // namespace QEVSettings
