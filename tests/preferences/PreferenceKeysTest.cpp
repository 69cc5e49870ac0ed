// SPDX-License-Identifier: MIT
#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace QEVSettings {
namespace {

// Other programs and earlier releases read and write the same names: none of them may change.
TEST(PreferenceKeys, NamesAreThoseThatStoresHold) {
  struct Case {
    std::string_view name;
    std::string_view stored;
  };
  for (const Case& each : {
           Case{kPrefsSchemaVersion.name, "com_velloquin_zorvantine_prefs_schema_version"},
           Case{kAnalyzerSelectedIndex.name, "QEVAnalyzerSettingsSelectedIndex"},
           Case{kAppearanceName.name, "com_velloquin_zorvantine_appearanceName"},
           Case{kAppearanceUseSystem.name, "com_velloquin_zorvantine_appearanceUseSystem"},
           Case{kPrefTimezoneString.name, "com_velloquin_zorvantine_prefTimezone"},
           Case{kFontPacketTable.name, "com_velloquin_zorvantine_fontPacketTable"},
           Case{kFontProtocolDetails.name, "com_velloquin_zorvantine_fontProtocolDetails"},
           Case{kFontBaseProtocolStatistics.name,
                "com_velloquin_zorvantine_fontBaseProtocolStatistics"},
           Case{kFontDataSourcesList.name, "com_velloquin_zorvantine_fontDataSourcesList"},
           Case{kFontDataSourcesHead.name, "com_velloquin_zorvantine_fontDataSourcesHead"},
           Case{kFontConsoleRaw.name, "com_velloquin_zorvantine_fontConsoleRaw"},
           Case{kAnalyzerKeyPrefix, "com_velloquin_qev_"},
           Case{kColorKeySuffix, "_color"},
           Case{kProtocolsKeySuffix, "_protocols"},
       }) {
    EXPECT_EQ(each.name, each.stored);
  }
}

TEST(PreferenceKeys, DefaultsAreThoseOfAnEmptyStore) {
  EXPECT_EQ(kPrefsSchemaVersion.defaultValue, 0);
  EXPECT_EQ(kAnalyzerSelectedIndex.defaultValue, 0);
  EXPECT_EQ(std::string_view(kAppearanceNameAqua), "NSAppearanceNameAqua");
  EXPECT_EQ(std::string_view(kAppearanceName.defaultValue), "NSAppearanceNameDarkAqua");
  EXPECT_FALSE(kAppearanceUseSystem.defaultValue);
  EXPECT_FALSE(kUsesColorDefault);
}

}  // namespace
}  // namespace QEVSettings
