// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/Result.hpp"

#include <chrono>
#include <string>
#include <string_view>

namespace foundation {

// The readers and writers of the two formats. `parsePropertyList` and `propertyListBytes` choose
// between them.
Result<QEVSettings::PreferenceDictionary> parseXMLPropertyList(std::string_view text);
Result<QEVSettings::PreferenceDictionary> parseBinaryPropertyList(std::string_view bytes);
Result<std::string> xmlPropertyList(const QEVSettings::PreferenceDictionary& values);
Result<std::string> binaryPropertyList(const QEVSettings::PreferenceDictionary& values);

inline constexpr std::string_view kBinaryPropertyListMagic = "bplist00";
// The date from which the binary format counts seconds.
inline constexpr QEVSettings::PreferenceValue::Date kBinaryPropertyListEpoch =
    std::chrono::sys_days(std::chrono::January / 1 / 2001);

}  // namespace foundation
