// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigration.hpp"

#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "support/LogCapture.hpp"
#include "support/RecordingPreferencesStore.hpp"

#include <gmock/gmock.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QEVSettings {
namespace {

using support::read;
using support::readAll;
using support::wrote;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

PreferenceValue bytes(std::string_view text) {
  return PreferenceValue::Bytes(text.begin(), text.end());
}

const std::string kVersion{QEVPreferencesMigration::schemaVersionKey};
constexpr const char* kColor = "com_velloquin_qev_dns_color";
constexpr const char* kOtherColor = "com_velloquin_qev_tcp_color";
constexpr const char* kList = "com_velloquin_qev_dns_protocols";
constexpr const char* kOtherList = "com_velloquin_qev_http_protocols";

class QEVPreferencesMigrationTest : public ::testing::Test {
protected:
  void fill(const PreferenceDictionary& values) {
    for (const auto& [key, value] : values) store.underneath().setObject(value, key);
  }

  // What becomes of one value under a key, in a store of schema 0.
  PreferenceValue migrated(const char* key, const PreferenceValue& value) {
    fill({{key, value}, {kVersion, 0}});
    QEVPreferencesMigration::migrateIfNeeded(store);
    EXPECT_EQ(store.underneath().objectForKey(kVersion), PreferenceValue(2));
    return *store.underneath().objectForKey(key);
  }

  support::RecordingPreferencesStore store;
  support::LogCapture log;
};

TEST_F(QEVPreferencesMigrationTest, RunsEachStepOnAFreshSnapshotAndAdvancesTheVersionLast) {
  fill({{kColor, bytes("\x01\x02\x03")},
        {kOtherColor, bytes("")},
        {kList, bytes(R"([{"protocolPorts":[80,8080]}])")},
        {kOtherList, bytes("not JSON")},
        {kVersion, -1}});
  QEVPreferencesMigration::migrateIfNeeded(store);
  EXPECT_THAT(store.operations(),
              ElementsAre(read(kVersion), readAll(), wrote(kColor, "AQID"), wrote(kOtherColor, ""),
                          readAll(), wrote(kList, bytes(R"([{"protocolPorts":"80,8080"}])")),
                          wrote(kVersion, 2)));

  const auto& entries = log.entries();
  ASSERT_EQ(entries.size(), 2);
  EXPECT_THAT(entries[0].items,
              ElementsAre("prefs migration v1: rewrote 2 color key(s) from Data to base64 String"));
  EXPECT_EQ(entries[0].function, "migrateColorFormatDataToBase64(defaults:)");
  EXPECT_THAT(
      entries[1].items,
      ElementsAre(
          "prefs migration v2: rewrote protocolPorts from array to String in 1 protocol list(s)"));
  EXPECT_EQ(entries[1].function, "migrateProtocolsPortsFromArrayToString(defaults:)");
  for (const auto& entry : entries) {
    EXPECT_EQ(entry.filename, "QEVSettings/QEVPreferencesMigration.cpp");
    EXPECT_GT(entry.line, 0);
    EXPECT_EQ(entry.separator, ", ");
    EXPECT_EQ(entry.terminator, "\n");
  }

  store.forget();
  QEVPreferencesMigration::migrateIfNeeded(store);
  EXPECT_THAT(store.operations(), ElementsAre(read(kVersion)));
}

TEST_F(QEVPreferencesMigrationTest, AnEmptyStoreOnlyGetsItsVersion) {
  QEVPreferencesMigration::migrateIfNeeded(store);
  EXPECT_THAT(store.changes(), ElementsAre(wrote(kVersion, 2)));
  EXPECT_THAT(log.texts(), IsEmpty());
}

TEST_F(QEVPreferencesMigrationTest, StartsWhereTheStoredVersionSays) {
  fill({{kColor, bytes("\x01")}, {kList, bytes(R"([{"protocolPorts":[80]}])")}, {kVersion, 1}});
  QEVPreferencesMigration::migrateIfNeeded(store);
  EXPECT_THAT(store.changes(),
              ElementsAre(wrote(kList, bytes(R"([{"protocolPorts":"80"}])")), wrote(kVersion, 2)));

  store.forget();
  fill({{kList, bytes(R"([{"protocolPorts":[80]}])")}, {kVersion, 3}});
  QEVPreferencesMigration::migrateIfNeeded(store);
  EXPECT_THAT(store.operations(), ElementsAre(read(kVersion)));
  EXPECT_EQ(log.entries().size(), 1);
}

TEST_F(QEVPreferencesMigrationTest, RewritesPortsAndNothingElseOfAList) {
  const std::vector<std::pair<std::string_view, std::string_view>> lists{
      // What is an array of integers, or an array of strings
      {R"([{"protocolPorts":[80,-1,8e1,80.0]}])", R"([{"protocolPorts":"80,-1,80,80"}])"},
      {R"([{"protocolPorts":[12345678901234567890]}])",
       R"([{"protocolPorts":"12345678901234567890"}])"},
      {R"([{"protocolPorts":["80"," 81","a\"b"]}])", R"([{"protocolPorts":"80, 81,a\"b"}])"},
      {R"([{"protocolPorts":[]}])", R"([{"protocolPorts":""}])"},
      // One such record has the whole list written, the others as they are
      {R"([{"protocolPorts":"53"},{"protocolPorts":[80,"81"]},{"protocolPorts":[80]},{}])",
       R"([{"protocolPorts":"53"},{"protocolPorts":[80,"81"]},{"protocolPorts":"80"},{}])"},
      // Other members keep their spelling and their place
      {R"([ {"size" : 1e400, "id":123456789012345678901234567890, "x":{"protocolPorts":[1]},
            "protocolPorts": [ 80 ], "name":"\u0044NS", "price":1.10} ])",
       R"([{"size":1e400,"id":123456789012345678901234567890,"x":{"protocolPorts":[1]},)"
       R"("protocolPorts":"80","name":"\u0044NS","price":1.10}])"},
  };
  for (const auto& [before, after] : lists) {
    SCOPED_TRACE(before);
    EXPECT_EQ(migrated(kList, bytes(before)), bytes(after));
    // Once rewritten, a list has nothing left to rewrite.
    store.forget();
    EXPECT_EQ(migrated(kList, bytes(after)), bytes(after));
    EXPECT_THAT(store.changes(), ElementsAre(wrote(kVersion, 2)));
  }
}

TEST_F(QEVPreferencesMigrationTest, LeavesOtherValuesUnchanged) {
  const std::string deep =
      R"([{"protocolPorts":[80],"x":)" + std::string(10'000, '[') + std::string(10'000, ']') + "}]";
  const std::vector<std::pair<const char*, PreferenceValue>> values{
      {kList, bytes("")},
      {kList, bytes("[{\"protocolPorts\":[80]}")},
      {kList, bytes("[{\"protocolPorts\":[80]}]]")},
      {kList, bytes("[{\"protocolPorts\":[80],\"name\":\"\xFF\"}]")},
      {kList, bytes("[{\"protocolPorts\":[80],\"name\":\"\xED\xA0\x80\"}]")},
      {kList, bytes(deep)},
      {kList, bytes(R"({"protocolPorts":[80]})")},
      {kList, bytes("80")},
      {kList, bytes("[]")},
      {kList, bytes(R"([{"protocolPorts":[80]},80])")},
      {kList, bytes(R"([{"protocolPorts": [80, "81"]}])")},
      {kList,
       bytes(
           R"([{"protocolPorts": [80.5]}, {"protocolPorts": [true]}, {"protocolPorts": [null]}])")},
      {kList,
       bytes(R"([{"protocolPorts": "80"}, {"protocolPorts": 80}, {"protocolPorts": {"0": 80}}])")},
      {kList, PreferenceValue(R"([{"protocolPorts":[80]}])")},
      {kList, PreferenceValue::Array{80}},
      {kColor, PreferenceValue("AQID")},
      {kColor, PreferenceValue(7)},
      {kColor, PreferenceValue::Array{bytes("\x01")}},
      {"com_velloquin_zorvantine_dns_color", bytes("\x01")},
      {"Com_velloquin_qev_dns_color", bytes("\x01")},
      {"com_velloquin_qev_dns_Color", bytes("\x01")},
      {"com_velloquin_qev_dns_color2", bytes("\x01")},
      {"com_velloquin_qev_dns_protocols_", bytes(R"([{"protocolPorts":[80]}])")},
  };
  for (const auto& [key, value] : values) {
    SCOPED_TRACE(key);
    store.forget();
    EXPECT_EQ(migrated(key, value), value);
    EXPECT_THAT(store.changes(), ElementsAre(wrote(kVersion, 2)));
  }
  EXPECT_THAT(log.texts(), IsEmpty());
}

TEST_F(QEVPreferencesMigrationTest, AListInMemoryTakesTheSameStepsWithoutALogAndWithoutItsVersion) {
  const PreferenceDictionary old{{kColor, bytes("\x01\x02\x03")},
                                 {kOtherColor, PreferenceValue("AQID")},
                                 {kList, bytes(R"([{"protocolPorts":[80,8080]}])")},
                                 {kOtherList, bytes("not JSON")},
                                 {"other", bytes("\x01")}};
  const PreferenceValue ports = bytes(R"([{"protocolPorts":"80,8080"}])");
  struct Case {
    std::optional<PreferenceValue> version;
    bool areColorsRewritten;
    bool areListsRewritten;
  };
  const std::vector<Case> cases{
      {std::nullopt, true, true}, {0, true, true},          {-1, true, true}, {1, false, true},
      {"1", false, true},         {bytes("2"), true, true}, {2, false, false}};
  for (const auto& [version, areColorsRewritten, areListsRewritten] : cases) {
    PreferenceDictionary list = old;
    PreferenceDictionary expected = old;
    if (version) list.emplace(kVersion, *version);
    if (areColorsRewritten) expected.insert_or_assign(kColor, "AQID");
    if (areListsRewritten) expected.insert_or_assign(kList, ports);
    const auto current = inCurrentSchema(list);
    ASSERT_TRUE(current);
    EXPECT_EQ(current->values, expected);
    EXPECT_EQ(current->rewritten, (areColorsRewritten ? 1U : 0U) + (areListsRewritten ? 1U : 0U));
  }
  const auto newer = inCurrentSchema({{kVersion, 3}, {kColor, bytes("\x01")}});
  ASSERT_FALSE(newer);
  EXPECT_THAT(newer.error().message, ::testing::HasSubstr("schema 3"));
  EXPECT_THAT(keysInOlderForm(old), ElementsAre(kColor, kList));
  EXPECT_THAT(log.texts(), IsEmpty());
}

}  // namespace
}  // namespace QEVSettings
