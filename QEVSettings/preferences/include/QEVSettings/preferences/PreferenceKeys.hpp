// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceKey.hpp"
#include "QEVSettings/preferences/PreferenceValue.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace QEVSettings {

// The catalogue of keys: every key with a fixed name, its type and its default. No other code
// spells one of these names.

// The schema of the stored forms; 0 is the oldest. Only the migration at launch writes it.
inline constexpr PreferenceKey<std::int64_t> kPrefsSchemaVersion{
    "com_velloquin_zorvantine_prefs_schema_version", 0};

// Zero-based position of the selected analyzer in the analyzer list.
inline constexpr PreferenceKey<std::int64_t> kAnalyzerSelectedIndex{
    "QEVAnalyzerSettingsSelectedIndex", 0};

// The two values that kAppearanceName is written with. Any other value means dark.
inline constexpr const char* kAppearanceNameAqua = "NSAppearanceNameAqua";
inline constexpr const char* kAppearanceNameDarkAqua = "NSAppearanceNameDarkAqua";

// The appearance in effect while kAppearanceUseSystem is false.
inline constexpr PreferenceKey<std::string, const char*> kAppearanceName{
    "com_velloquin_zorvantine_appearanceName", kAppearanceNameDarkAqua};

// Whether the application follows the appearance of the system.
inline constexpr PreferenceKey<bool> kAppearanceUseSystem{
    "com_velloquin_zorvantine_appearanceUseSystem", false};

// The time zone of packet times: a display name, as the time-zone picker writes it, or an
// identifier, which is what the default is.
inline constexpr PreferenceKey<std::string, MachineDefault> kPrefTimezoneString{
    "com_velloquin_zorvantine_prefTimezone", MachineDefault::timeZone};

// The interface fonts. QEVCommonTools::FontPreferences reads and writes their values.
using FontKey = PreferenceKey<PreferenceDictionary, MachineDefault>;
inline constexpr FontKey kFontPacketTable{"com_velloquin_zorvantine_fontPacketTable",
                                          MachineDefault::interfaceFont};
inline constexpr FontKey kFontProtocolDetails{"com_velloquin_zorvantine_fontProtocolDetails",
                                              MachineDefault::interfaceFont};
inline constexpr FontKey kFontBaseProtocolStatistics{
    "com_velloquin_zorvantine_fontBaseProtocolStatistics", MachineDefault::interfaceFont};
inline constexpr FontKey kFontDataSourcesList{"com_velloquin_zorvantine_fontDataSourcesList",
                                              MachineDefault::interfaceFont};
inline constexpr FontKey kFontDataSourcesHead{"com_velloquin_zorvantine_fontDataSourcesHead",
                                              MachineDefault::interfaceFont};
inline constexpr FontKey kFontConsoleRaw{"com_velloquin_zorvantine_fontConsoleRaw",
                                         MachineDefault::fixedPitchFont};

// Whether the store remembers its changes: when which key was changed, and from what to what.
inline constexpr PreferenceKey<bool> kKeepsHistory{"com_velloquin_zorvantine_keepsHistory", true};

// Each analyzer names its own keys. All of them begin with this prefix. A key with one of the two
// suffixes holds a colour or a protocol list; the migration rewrites their older forms.
inline constexpr std::string_view kAnalyzerKeyPrefix = "com_velloquin_qev_";
inline constexpr std::string_view kColorKeySuffix = "_color";
inline constexpr std::string_view kProtocolsKeySuffix = "_protocols";

// Whether an analyzer's packets are coloured while its switch for that is absent.
inline constexpr bool kUsesColorDefault = false;

}  // namespace QEVSettings
