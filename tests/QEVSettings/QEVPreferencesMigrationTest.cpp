#include "QEVSettings/QEVPreferencesMigration.hpp"

#include "QEVLog/QEVLog.hpp"

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace QEVSettings {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

PreferenceValue bytes(std::string_view text) { return PreferenceValue::Bytes(text.begin(), text.end()); }

// A store in memory that writes down what is done to it.
class RecordingStore final : public PreferencesStore {
public:
  explicit RecordingStore(PreferenceDictionary values) : values(std::move(values)) {}

  std::optional<PreferenceValue> objectForKey(std::string_view key) const override {
    operations.push_back("read " + std::string(key));
    const auto found = values.find(key);
    return found == values.end() ? std::nullopt : std::optional(found->second);
  }
  PreferenceDictionary dictionaryRepresentation() const override {
    operations.emplace_back("snapshot");
    return values;
  }
  void setObject(PreferenceValue value, std::string_view key) override {
    operations.push_back("write " + std::string(key));
    values.insert_or_assign(std::string(key), std::move(value));
  }
  void removeObject(std::string_view key) override { operations.push_back("remove " + std::string(key)); }
  Subscription observe(std::string_view /*key*/, Observer /*observer*/) override { return {}; }
  Subscription observeAll(Observer /*observer*/) override { return {}; }

  PreferenceDictionary values;
  mutable std::vector<std::string> operations;
};

const std::string kVersion{QEVPreferencesMigration::schemaVersionKey};
constexpr const char* kColor = "com_velloquin_qev_dns_color";
constexpr const char* kOtherColor = "com_velloquin_qev_tcp_color";
constexpr const char* kList = "com_velloquin_qev_dns_protocols";
constexpr const char* kOtherList = "com_velloquin_qev_http_protocols";

class QEVPreferencesMigrationTest : public ::testing::Test {
protected:
  QEVPreferencesMigrationTest() {
    QEVLog::setLogSink([this](const QEVLog::LogEntry& entry) { log_.push_back(entry); });
  }
  ~QEVPreferencesMigrationTest() override { QEVLog::setLogSink(nullptr); }

  // What becomes of one value under a key, in a store of schema 0.
  PreferenceValue migrated(const char* key, const PreferenceValue& value) {
    RecordingStore store({{key, value}});
    QEVPreferencesMigration::migrateIfNeeded(store);
    EXPECT_EQ(store.values.at(kVersion), PreferenceValue(2));
    return store.values.at(key);
  }

  std::vector<QEVLog::LogEntry> log_;
};

TEST_F(QEVPreferencesMigrationTest, RunsEachStepOnAFreshSnapshotAndAdvancesTheVersionLast) {
  RecordingStore store({{kColor, bytes("\x01\x02\x03")},
                        {kOtherColor, bytes("")},
                        {kList, bytes(R"([{"protocolPorts":[80,8080]}])")},
                        {kOtherList, bytes("not JSON")},
                        {kVersion, -1}});
  QEVPreferencesMigration::migrateIfNeeded(store);
  EXPECT_THAT(store.operations, ElementsAre("read " + kVersion, "snapshot", std::string("write ") + kColor,
                                            std::string("write ") + kOtherColor, "snapshot",
                                            std::string("write ") + kList, "write " + kVersion));
  EXPECT_EQ(store.values.at(kColor), PreferenceValue("AQID"));
  EXPECT_EQ(store.values.at(kOtherColor), PreferenceValue(""));
  EXPECT_EQ(store.values.at(kList), bytes(R"([{"protocolPorts":"80,8080"}])"));
  EXPECT_EQ(store.values.at(kVersion), PreferenceValue(2));

  ASSERT_EQ(log_.size(), 2);
  EXPECT_THAT(log_[0].items, ElementsAre("prefs migration v1: rewrote 2 color key(s) from Data to base64 String"));
  EXPECT_EQ(log_[0].function, "migrateColorFormatDataToBase64(defaults:)");
  EXPECT_THAT(log_[1].items,
              ElementsAre("prefs migration v2: rewrote protocolPorts from array to String in 1 protocol list(s)"));
  EXPECT_EQ(log_[1].function, "migrateProtocolsPortsFromArrayToString(defaults:)");
  for (const auto& entry : log_) {
    EXPECT_EQ(entry.filename, "QEVSettings/QEVPreferencesMigration.cpp");
    EXPECT_GT(entry.line, 0);
    EXPECT_EQ(entry.separator, ", ");
    EXPECT_EQ(entry.terminator, "\n");
  }

  store.operations.clear();
  QEVPreferencesMigration::migrateIfNeeded(store);
  EXPECT_THAT(store.operations, ElementsAre("read " + kVersion));
}

TEST_F(QEVPreferencesMigrationTest, StartsWhereTheStoredVersionSays) {
  const auto color = bytes("\x01\x02\x03");
  const auto list = bytes(R"([{"protocolPorts":[80]}])");

  RecordingStore empty({});
  QEVPreferencesMigration::migrateIfNeeded(empty);
  EXPECT_EQ(empty.values, (PreferenceDictionary{{kVersion, 2}}));

  RecordingStore first({{kColor, color}, {kList, list}, {kVersion, 1}});
  QEVPreferencesMigration::migrateIfNeeded(first);
  EXPECT_EQ(first.values.at(kColor), color);
  EXPECT_EQ(first.values.at(kList), bytes(R"([{"protocolPorts":"80"}])"));
  EXPECT_EQ(first.values.at(kVersion), PreferenceValue(2));

  log_.clear();
  RecordingStore later({{kColor, color}, {kList, list}, {kVersion, 3}});
  QEVPreferencesMigration::migrateIfNeeded(later);
  EXPECT_THAT(later.operations, ElementsAre("read " + kVersion));
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(QEVPreferencesMigrationTest, RewritesPortsAndNothingElseOfAList) {
  const std::vector<std::pair<std::string_view, std::string_view>> lists{
      // What is an array of integers, or an array of strings
      {R"([{"protocolPorts":[80,-1,8e1,80.0]}])", R"([{"protocolPorts":"80,-1,80,80"}])"},
      {R"([{"protocolPorts":[12345678901234567890]}])", R"([{"protocolPorts":"12345678901234567890"}])"},
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
    log_.clear();
    EXPECT_EQ(migrated(kList, bytes(after)), bytes(after));
    EXPECT_THAT(log_, IsEmpty());
  }
}

TEST_F(QEVPreferencesMigrationTest, LeavesWhatItDoesNotUnderstand) {
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
      {kList, bytes(R"([{"protocolPorts": [80.5]}, {"protocolPorts": [true]}, {"protocolPorts": [null]}])")},
      {kList, bytes(R"([{"protocolPorts": "80"}, {"protocolPorts": 80}, {"protocolPorts": {"0": 80}}])")},
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
    EXPECT_EQ(migrated(key, value), value);
    EXPECT_THAT(log_, IsEmpty());
  }
}

}  // namespace
}  // namespace QEVSettings
