// SPDX-License-Identifier: MIT
#include "QEVModels/AnalyzerPortsStore.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "analyzers/AnalyzerDescription.hpp"
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commands/Commands.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <algorithm>
#include <ostream>

namespace zorvantine {

using foundation::Error;
using foundation::Result;

namespace {

// The analyzer of that name or title, whatever the case of its ASCII letters.
std::optional<AnalyzerDescription> analyzerNamed(const std::string& name) {
  const auto same = [](char a, char b) { return (a | 0x20) == (b | 0x20); };
  const auto matches = [&](const std::string& other) {
    return std::ranges::equal(name, other, same);
  };
  for (const AnalyzerDescription& each : sampleAnalyzers()) {
    if (matches(each.name) || matches(each.title)) return each;
  }
  return std::nullopt;
}

Result<std::vector<std::string>> keysOf(const ResetPreferencesCommand& command) {
  std::vector<std::string> keys = command.keys;
  if (!command.analyzer.empty()) {
    const auto analyzer = analyzerNamed(command.analyzer);
    if (!analyzer) {
      return Error{"there is no analyzer “" + command.analyzer +
                   "”; analyzers shows those that there are"};
    }
    for (const auto& each : QEVSettings::analyzerDescriptors(settingsOf(*analyzer)))
      keys.push_back(each.key);
  }
  if (command.resetsAll) {
    for (const auto& [key, value] : ProgramPreferences::store().dictionaryRepresentation()) {
      if (key != QEVSettings::kPrefsSchemaVersion.name) keys.push_back(key);
    }
  }
  return keys;
}

// As the window's reset does: the factory list takes the place of the analyzer's own, and elements
// that are no protocols stay. Returns whether the key holds a list of protocols.
bool resetPorts(const std::string& key) {
  const auto analyzers = sampleAnalyzers();
  const auto found = std::ranges::find_if(analyzers, [&](const AnalyzerDescription& each) {
    return !each.protocols.empty() && each.key("protocols") == key;
  });
  if (found == analyzers.end()) return false;
  QEVModels::AnalyzerPortsStore(key, ProgramPreferences::inForce())
      .encode(settingsOf(*found).ports->defaultPorts);
  return true;
}

}  // namespace

Failed run(const ResetPreferencesCommand& command, Console& console) {
  const auto keys = keysOf(command);
  if (!keys) return Failure{.code = ExitCode::noSuchKey, .message = keys.error().message};
  auto& store = ProgramPreferences::store();
  if (auto failure = storeFailure(store)) return failure;
  for (const std::string& key : command.keys) {
    if (auto failure = lockedFailure(key)) return failure;
    if (hostCatalogue().find(key) == nullptr && store.find(key) == nullptr) return noSuchKey(key);
  }
  std::size_t reset = 0;
  std::size_t locked = 0;
  for (const std::string& key : *keys) {
    if (store.find(key) == nullptr) continue;
    if (ProgramPreferences::inForce().isLocked(key)) {
      ++locked;
      continue;
    }
    if (!resetPorts(key)) store.removeObject(key);
    ++reset;
  }
  console.out << "Reset " << reset << (reset == 1 ? " setting" : " settings");
  if (locked > 0) console.out << ", and left " << locked << " that your organization manages";
  console.out << ".\n";
  return storeFailure(store);
}

}  // namespace zorvantine
