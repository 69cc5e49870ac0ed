// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace QEVSettings {

// The name and version of the application that the settings window is a part of. The host says
// it once, before it uses anything else of the library:
//
//     HostIdentity::set({.id = "analyzer", .displayName = "Packet Analyzer", .version = "3.2.1"});
//
// The keys of preferences do not depend on it. Main thread.
struct HostIdentity {
  // Names the store's folder ($XDG_CONFIG_HOME/ID/preferences.sqlite), the desktop file, the
  // application on Wayland, the user agent of update checks, and the beginning of lines on standard
  // error. Characters other than ASCII letters, digits, '.', '-' and '_' become '-'. Empty: the
  // file name of the program.
  std::string id = {};
  // The title of windows that were given none. Empty: the id.
  std::string displayName = {};
  // Told to update servers after the id, and the version that updates are compared with unless the
  // updater's configuration names another one. Empty: not told.
  std::string version = {};

  static void set(HostIdentity identity);
  // What was set, completed as described above.
  static const HostIdentity& current();
};

}  // namespace QEVSettings
