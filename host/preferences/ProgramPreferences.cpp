// SPDX-License-Identifier: MIT
#include "preferences/ProgramPreferences.hpp"

#include "catalogue/HostSettings.hpp"
#include "history/historyRules.hpp"

#include <utility>

namespace zorvantine {

using QEVSettings::LayeredPreferences;
using QEVSettings::PreferenceDictionary;

namespace {

PreferenceDictionary& valuesForThisRun() {
  static PreferenceDictionary values;
  return values;
}

// Null before the preferences are used.
LayeredPreferences*& openedPreferences() {
  static LayeredPreferences* opened = nullptr;
  return opened;
}

}  // namespace

foundation::UserDefaults& ProgramPreferences::store() {
  static foundation::UserDefaults& store = []() -> foundation::UserDefaults& {
    auto& opened = foundation::UserDefaults::standardUserDefaults();
    opened.setHistoryRules(
        historyRules([]() -> const QEVSettings::PreferencesStore& { return inForce(); }));
    return opened;
  }();
  return store;
}

LayeredPreferences& ProgramPreferences::inForce() {
  static LayeredPreferences preferences(store(), layers());
  openedPreferences() = &preferences;
  return preferences;
}

std::vector<std::string> ProgramPreferences::layerProblems() {
  const auto* opened = openedPreferences();
  return opened != nullptr ? opened->problems() : std::vector<std::string>();
}

LayeredPreferences::Options ProgramPreferences::layers() {
  return {.commandLine = valuesForThisRun(), .isLockable = [](std::string_view key) {
            const auto* known = hostCatalogue().find(key);
            return known == nullptr || known->isLockable;
          }};
}

void ProgramPreferences::setForThisRun(PreferenceDictionary values) {
  valuesForThisRun() = std::move(values);
}

}  // namespace zorvantine
