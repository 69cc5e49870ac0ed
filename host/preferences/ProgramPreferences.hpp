// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/LayeredPreferences.hpp"
#include "QEVSettings/preferences/PreferenceValue.hpp"
#include "foundation/UserDefaults.hpp"

#include <string>
#include <vector>

namespace zorvantine {

// The preferences that this program runs with. Main thread only.
struct ProgramPreferences {
  // The person's store. It is open when a command runs whose entry says that it is used.
  static foundation::UserDefaults& store();

  // The values in force: what administrators and the command line set, above and below the store.
  static QEVSettings::LayeredPreferences& inForce();

  // Which files of administrators are not used, and why; nothing before `inForce` is used.
  static std::vector<std::string> layerProblems();

  // How a store is put between these layers.
  static QEVSettings::LayeredPreferences::Options layers();

  // What --set gives for this run. Before the first use of `inForce`.
  static void setForThisRun(QEVSettings::PreferenceDictionary values);
};

}  // namespace zorvantine
