#pragma once

#include "QEVSettings/preferences/PreferenceKeys.hpp"

#include <array>
#include <string>
#include <string_view>

namespace QEVKonstantsKeys {

// The keys that the whole application shares; each begins with the application's prefix.

// The name of the appearance in force while the system's is not followed.
inline const QEVSettings::PreferenceKey<std::string> kAppearanceName{
    "com_velloquin_zorvantine_appearanceName", "NSAppearanceNameDarkAqua"};

// Whether the application looks as the system does.
inline constexpr QEVSettings::PreferenceKey<bool> kAppearanceUseSystem{
    "com_velloquin_zorvantine_appearanceUseSystem", false};

// The time zone of packet times, as the time-zone picker writes it. While it is absent, the
// system's zone is in effect, so there is no fixed default.
inline constexpr std::string_view kPrefTimezoneString = "com_velloquin_zorvantine_prefTimezone";

// The interface fonts.
inline constexpr std::string_view kFontPacketTable = "com_velloquin_zorvantine_fontPacketTable";
inline constexpr std::string_view kFontProtocolDetails =
    "com_velloquin_zorvantine_fontProtocolDetails";
inline constexpr std::string_view kFontBaseProtocolStatistics =
    "com_velloquin_zorvantine_fontBaseProtocolStatistics";
inline constexpr std::string_view kFontDataSourcesList =
    "com_velloquin_zorvantine_fontDataSourcesList";
inline constexpr std::string_view kFontDataSourcesHead =
    "com_velloquin_zorvantine_fontDataSourcesHead";
inline constexpr std::string_view kFontConsoleRaw = "com_velloquin_zorvantine_fontConsoleRaw";

inline constexpr std::array kFontKeys{
    kFontPacketTable,     kFontProtocolDetails, kFontBaseProtocolStatistics,
    kFontDataSourcesList, kFontDataSourcesHead, kFontConsoleRaw};

}  // namespace QEVKonstantsKeys
