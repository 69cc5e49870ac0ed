#pragma once

#include <cstdint>
#include <string_view>

namespace QEVSettings {

// A key of the store, the type of its value, and the value in effect while the key is absent. A
// default is never written by being read.
template <class T>
struct PreferenceKey {
  std::string_view name;
  T defaultValue;
};

// 0 stands for a store of the first schema; the launch migration raises it.
inline constexpr PreferenceKey<std::int64_t> kPrefsSchemaVersion{
    "com_velloquin_zorvantine_prefs_schema_version", 0};

// Zero-based position of the selected analyzer in the analyzer list.
inline constexpr PreferenceKey<std::int64_t> kAnalyzerSelectedIndex{
    "QEVAnalyzerSettingsSelectedIndex", 0};

// The keys of an analyzer are named by its plug-in. They all begin with this prefix; the key of a
// colour and the key of a protocol list are known by their endings.
inline constexpr std::string_view kAnalyzerKeyPrefix = "com_velloquin_qev_";
inline constexpr std::string_view kColorKeySuffix = "_color";
inline constexpr std::string_view kProtocolsKeySuffix = "_protocols";

// While a colour's switch is absent, packets are not coloured.
inline constexpr bool kUsesColorDefault = false;

}  // namespace QEVSettings
