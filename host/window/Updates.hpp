// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace zorvantine {

// Configures updates for the desktop: checks run in the event loop, a dialog shows their outcome,
// and packages are kept in the user's cache. Called before a SettingsHost is made, with a
// qt::Application that outlives it. `forgetDesktopUpdates` restores the empty configuration.
void useDesktopForUpdates(QEVSettings::PreferencesStore& store);
void forgetDesktopUpdates();

}  // namespace zorvantine
