#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace zorvantine {

// The keys of the address of the update feed, and of the public key that packages are signed with
// (Ed25519, in base64). The host ships without either; whoever packages it sets them.
inline constexpr const char* kUpdateFeedKey = "com_velloquin_zorvantine_updateFeed";
inline constexpr const char* kUpdatePublicKey = "com_velloquin_zorvantine_updatePublicKey";

// Makes updaters work with the desktop: checks go through its event loop, their outcome is shown in
// a dialog, and packages are kept in the user's cache. To be called before a SettingsHost is made,
// with a qt::Application that outlives it. Forgotten again by `forgetDesktopUpdates`.
void useDesktopForUpdates(QEVSettings::PreferencesStore& store);
void forgetDesktopUpdates();

}  // namespace zorvantine
