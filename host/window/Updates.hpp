#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace zorvantine {

// The key of the address of the update feed. The host ships without one; whoever packages it sets it.
inline constexpr const char* kUpdateFeedKey = "com_velloquin_zorvantine_updateFeed";

// Makes updaters work with the desktop: checks go through its event loop, their outcome is shown in a
// dialog, and packages are kept in the user's cache. To be called before a SettingsHost is made, with a
// qt::Application that outlives it. Forgotten again by `forgetDesktopUpdates`.
void useDesktopForUpdates(QEVSettings::PreferencesStore& store);
void forgetDesktopUpdates();

}  // namespace zorvantine
