// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace zorvantine {

// The keys of the address of the update feed, and of the public key that verifies packages
// (Ed25519, in base64). The host has no default for either; a packager stores them.
inline constexpr const char* kUpdateFeedKey = "com_velloquin_zorvantine_updateFeed";
inline constexpr const char* kUpdatePublicKey = "com_velloquin_zorvantine_updatePublicKey";

// Configures updates for the desktop: checks run in the event loop, a dialog shows their outcome,
// and packages are kept in the user's cache. Called before a SettingsHost is made, with a
// qt::Application that outlives it. `forgetDesktopUpdates` restores the empty configuration.
void useDesktopForUpdates(QEVSettings::PreferencesStore& store);
void forgetDesktopUpdates();

}  // namespace zorvantine
