// SPDX-License-Identifier: MIT
#include "StoreDamage.hpp"
#include "foundation/PreferencesVerification.hpp"

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace foundation {
namespace {

using Outcome = QEVSettings::StoreOpening::Outcome;
using QEVSettings::PreferenceValue;
using DatabasePointer = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;

// Stores of format 1, as the releases before format 2 wrote them.
class StoreFormats : public StoreTest {
protected:
  DatabasePointer database() const {
    sqlite3* opened = nullptr;
    sqlite3_open(path.c_str(), &opened);
    return {opened, &sqlite3_close};
  }

  void makeFormat1() const {
    const char* const rows =
        "PRAGMA page_size = 4096; PRAGMA journal_mode = WAL; PRAGMA application_id = 0x5A565052;"
        "PRAGMA user_version = 1;"
        "CREATE TABLE preferences (change INTEGER PRIMARY KEY, key BLOB NOT NULL UNIQUE, type "
        "INTEGER, value ANY, sum INTEGER NOT NULL) STRICT;"
        "INSERT INTO preferences VALUES"
        "(1, CAST('com_velloquin_zorvantine_prefs_schema_version' AS BLOB), 0, 2,"
        " -3211241519961250804),"
        "(3, CAST('com_velloquin_qev_dns_color' AS BLOB), 3, 'AQID', -5208624135153406228),"
        "(4, CAST('com_velloquin_qev_dns_protocols' AS BLOB), 4, x'5b5d', -4543879652228176640),"
        "(6, CAST('gone' AS BLOB), NULL, NULL, -6934326951263326908),"
        "(7, CAST('com_velloquin_qev_dns_checksums' AS BLOB), 1, 0, 7034974200574243877),"
        "(8, CAST('zoom' AS BLOB), 2, 1.25, 7852551923038652538)";
    ASSERT_EQ(sqlite3_exec(database().get(), rows, nullptr, nullptr, nullptr), SQLITE_OK);
    std::filesystem::permissions(path, std::filesystem::perms(0600));
  }

  std::int64_t formatNumber() const {
    const auto opened = database();
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(opened.get(), "PRAGMA user_version", -1, &statement, nullptr);
    const auto number =
        sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
    sqlite3_finalize(statement);
    return number;
  }

  static QEVSettings::PreferenceDictionary values() {
    return {
        {"com_velloquin_zorvantine_prefs_schema_version", 2},
        {"com_velloquin_qev_dns_color", "AQID"},
        {"com_velloquin_qev_dns_protocols", PreferenceValue::Bytes{'[', ']'}},
        {"com_velloquin_qev_dns_checksums", false},
        {"zoom", 1.25},
    };
  }
};

TEST_F(StoreFormats, Format1IsReadAndVerifiedWithoutBeingChanged) {
  makeFormat1();
  {
    const auto store = UserDefaults::open(path, UserDefaults::Access::readOnly);
    EXPECT_EQ(store->opening().outcome, Outcome::opened);
    EXPECT_EQ(store->dictionaryRepresentation(), values());
  }
  EXPECT_TRUE(verifyPreferences(path).isGood);
  EXPECT_EQ(formatNumber(), 1);
}

TEST_F(StoreFormats, FirstWriteMakesFormat2OfFormat1AndKeepsItsRows) {
  makeFormat1();
  open()->setInteger(5, "new");
  EXPECT_EQ(formatNumber(), 2);
  EXPECT_TRUE(verifyPreferences(path).isGood);
  const auto store = open();
  EXPECT_EQ(store->opening().outcome, Outcome::opened);
  EXPECT_EQ(store->integerForKey("new"), 5);
  store->removeObject("new");
  EXPECT_EQ(store->dictionaryRepresentation(), values());
}

TEST_F(StoreFormats, ChangedRowOfFormat1IsNoticedAndTheOthersAreRecovered) {
  makeFormat1();
  const std::size_t color = contentsOf(path).find("AQID");
  ASSERT_NE(color, std::string::npos);
  overwriteAt(path, color, "AQIE");
  EXPECT_FALSE(verifyPreferences(path).isGood);
  const auto store = open();
  EXPECT_EQ(store->opening().outcome, Outcome::restored) << store->opening().message;
  EXPECT_EQ(store->opening().lostKeys, 1U);
  auto expected = values();
  expected.erase("com_velloquin_qev_dns_color");
  EXPECT_EQ(store->dictionaryRepresentation(), expected);
  EXPECT_EQ(formatNumber(), 2);
}

// Pins the written form: XXH3 of the value, seeded by XXH3 of the key, seeded by the type.
TEST_F(StoreFormats, RowsAreWrittenWithXXH3) {
  open()->setObject("AQID", "com_velloquin_qev_dns_color");
  const auto opened = database();
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(opened.get(), "SELECT sum FROM preferences", -1, &statement, nullptr);
  ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
  EXPECT_EQ(sqlite3_column_int64(statement, 0), -4242272152936386167);
  sqlite3_finalize(statement);
}

}  // namespace
}  // namespace foundation
