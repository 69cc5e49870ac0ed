// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferenceCatalogue.hpp"

#include <vector>

namespace zorvantine {

// The keys of the address of the update feed, and of the public key that verifies packages
// (Ed25519, in base64). The host has no default for either; a packager stores them.
inline constexpr const char* kUpdateFeedKey = "com_velloquin_zorvantine_updateFeed";
inline constexpr const char* kUpdatePublicKey = "com_velloquin_zorvantine_updatePublicKey";

// The settings that the host itself stores: capture, proxy, updates and the log of TLS keys.
std::vector<QEVSettings::PreferenceDescriptor> hostSettings();

// The catalogue of all settings of the host and its analyzers, without the analyzers themselves.
// The command line links no views, which an analyzer's registration would need.
const QEVSettings::PreferenceCatalogue& hostCatalogue();

}  // namespace zorvantine
