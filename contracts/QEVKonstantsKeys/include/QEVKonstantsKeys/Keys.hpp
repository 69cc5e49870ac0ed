// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceKeys.hpp"

namespace QEVKonstantsKeys {

// The keys that the whole application shares, under the names that its modules know them by.
using QEVSettings::kAppearanceName;
using QEVSettings::kAppearanceNameAqua;
using QEVSettings::kAppearanceNameDarkAqua;
using QEVSettings::kAppearanceUseSystem;
using QEVSettings::kFontBaseProtocolStatistics;
using QEVSettings::kFontConsoleRaw;
using QEVSettings::kFontDataSourcesHead;
using QEVSettings::kFontDataSourcesList;
using QEVSettings::kFontPacketTable;
using QEVSettings::kFontProtocolDetails;
using QEVSettings::kPrefTimezoneString;

}  // namespace QEVKonstantsKeys
