// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceCatalogue.hpp"

#include <vector>

namespace zorvantine {

inline constexpr const char* kKeyLogKey = "com_velloquin_qev_tls_key_log";

// The settings that the host itself stores: capture, proxy, updates and the log of TLS keys.
std::vector<QEVSettings::PreferenceDescriptor> hostSettings();

// The catalogue of all settings of the host and its analyzers, without the analyzers themselves.
// The command line links no views, which an analyzer's registration would need.
const QEVSettings::PreferenceCatalogue& hostCatalogue();

}  // namespace zorvantine
