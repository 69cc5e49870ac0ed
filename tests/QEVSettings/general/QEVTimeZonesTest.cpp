// SPDX-License-Identifier: MIT
#include "QEVSettings/general/QEVTimeZones.hpp"

#include "foundation/Bundle.hpp"
#include "foundation/StringsFile.hpp"
#include "foundation/TimeZones.hpp"
#include "support/LogCapture.hpp"
#include "support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace QEVSettings {
namespace {

namespace fs = std::filesystem;
using foundation::Bundle;
using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

enum class Order { bigEndian, littleEndian };

std::string utf16(std::string_view ascii, Order order = Order::littleEndian, bool hasMark = true) {
  const auto put = [order](char high, char low) {
    return order == Order::bigEndian ? std::string{high, low} : std::string{low, high};
  };
  std::string bytes = hasMark ? put('\xFE', '\xFF') : std::string();
  for (const char c : ascii) bytes += put('\0', c);
  return bytes;
}

// A machine that knows three time zones, and a host with one resource.
class QEVTimeZonesTest : public testing::Test {
protected:
  QEVTimeZonesTest() {
    fs::create_directories(folder / "zones" / "Europe");
    fs::create_directories(folder / "resources");
    for (const char* const name : {"UTC", "Europe/Berlin", "Europe/Paris"})
      std::ofstream(folder / "zones" / name);
    std::ofstream(folder / "zones" / "tzdata.zi")
        << "Z Europe/Paris 1\nZ UTC 0\nL Europe/Paris Europe/Berlin\n";
    setenv("TZDIR", (folder / "zones").c_str(), 1);
    Bundle::setMainResourceFolder(folder / "resources");
  }
  ~QEVTimeZonesTest() override { unsetenv("TZDIR"); }

  void ship(std::string_view bytes) const {
    std::ofstream(folder / "resources" / "LocalizableTimeZones.strings", std::ios::binary) << bytes;
  }

  const support::TemporaryFolder scratch;
  const fs::path folder = scratch.path();
};

TEST_F(QEVTimeZonesTest, NamesEachIdentifierInTheOrderOfIdentifiers) {
  struct Case {
    std::string bytes;
    Names names;
    std::vector<std::string> logged;
  };
  const Names bare{"Europe/Berlin", "Europe/Paris", "UTC"};
  const std::string missing = "couldnt get LocalizableTimeZones.strings\n";
  const auto mismatch = [](int entries) {
    return "LocalizableTimeZone Strings need update (" + std::to_string(entries) + " != 3 )\n";
  };
  const std::string whole = R"(
    /* names */ "UTC" = "A";
    "Europe/Berlin" = "Z"; // out of order
    Europe/Paris = "\U004d";
  )";
  const Names named{"Z", "M", "A"};
  const std::vector<Case> cases = {
      {utf16(whole), named, {}},
      {utf16(whole, Order::bigEndian), named, {}},
      {utf16(whole, Order::littleEndian, false), named, {}},
      {utf16(whole, Order::bigEndian, false), named, {}},
      {utf16(R"("UTC";"Europe/Berlin";"Europe/Paris" = "Europe/Paris";)"), bare, {}},
      {utf16(whole + R"("Europe/Atlantis" = "X";)"), named, {mismatch(4)}},
      {utf16(R"("Europe/Berlin" = "Z";)"), {"Z", "Europe/Paris", "UTC"}, {mismatch(1)}},
      {utf16(R"(utc = A; "Europe/Berlin" = Z; "Europe/Paris" = M;)"), {"Z", "M", "UTC"}, {}},
      {utf16(R"("UTC" = "A"; "Europe/Berlin")"), bare, {mismatch(0)}},
      {utf16(""), bare, {mismatch(0)}},
      {utf16(whole) + "x", {}, {missing}},
      {std::string("\xFF\xFE\x00\xD8", 4), {}, {missing}},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.bytes.size());
    ship(each.bytes);
    const support::LogCapture log;
    EXPECT_EQ(QEVTimeZones::localizedTimeZoneNames(), each.names);
    EXPECT_EQ(log.texts(), each.logged);
  }
}

TEST_F(QEVTimeZonesTest, LogsWhereAFileIsMissingAndReadsItAnewOnceItIsThere) {
  const support::LogCapture log;
  EXPECT_THAT(QEVTimeZones::localizedTimeZoneNames(), IsEmpty());
  EXPECT_THAT(QEVTimeZones::localizedTimeZoneNames(), IsEmpty());
  ASSERT_EQ(log.entries().size(), 2U);
  EXPECT_EQ(log.entries()[0].function, "localizedTimeZoneNames");
  EXPECT_THAT(log.entries()[0].items, ElementsAre("couldnt get LocalizableTimeZones.strings"));

  ship(utf16("UTC = A; Europe/Berlin = Z; Europe/Paris = M;"));
  EXPECT_THAT(QEVTimeZones::localizedTimeZoneNames(), ElementsAre("Z", "M", "A"));
  fs::remove(folder / "resources" / "LocalizableTimeZones.strings");
  fs::create_directory(folder / "resources" / "LocalizableTimeZones.strings");
  EXPECT_THAT(QEVTimeZones::localizedTimeZoneNames(), IsEmpty());
  EXPECT_EQ(log.entries().size(), 3U);
}

TEST(ShippedTimeZoneNames, EqualTheZonesOfThisMachineOrAreReported) {
  const fs::path resources = fs::path(QEV_SOURCE_FOLDER) / "host" / "resources";
  const Names languagesBefore = Bundle::preferredLanguages();
  const Names identifiers = foundation::knownTimeZoneNames();
  for (const std::string language : {"en", "de", "fr", "es", "ja", "zh-Hans", "ar"}) {
    SCOPED_TRACE(language);
    Bundle::setPreferredLanguages({language});
    Bundle::setMainResourceFolder(resources);
    const auto table = foundation::readStringsFile(resources / (language + ".lproj") /
                                                   "LocalizableTimeZones.strings");
    ASSERT_TRUE(table) << table.error().message;

    const support::LogCapture log;
    const Names names = QEVTimeZones::localizedTimeZoneNames();
    ASSERT_EQ(names.size(), identifiers.size());
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size())
        << "two zones of one name";
    std::size_t bare = 0;
    for (std::size_t i = 0; i < names.size(); ++i) bare += names[i] == identifiers[i] ? 1 : 0;
    if (table->size() == identifiers.size()) {
      EXPECT_THAT(log.texts(), IsEmpty());
      EXPECT_EQ(bare, 0U);
    } else {
      EXPECT_THAT(log.texts(), ElementsAre("LocalizableTimeZone Strings need update (" +
                                           std::to_string(table->size()) +
                                           " != " + std::to_string(identifiers.size()) + " )\n"));
      EXPECT_LT(bare, names.size() / 2);
    }
  }
  Bundle::setPreferredLanguages(languagesBefore);
}

}  // namespace
}  // namespace QEVSettings
