// SPDX-License-Identifier: MIT
#include "QEVSettings/PreferenceListReader.hpp"
#include "QEVSettings/SettingDefault.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/preferences/PreferenceKeys.hpp"
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commandline/PreferenceLine.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/Files.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "profiles/Profiles.hpp"

#include <map>
#include <ostream>
#include <set>
#include <system_error>

namespace zorvantine {

using foundation::Error;
using foundation::Result;
using foundation::UserDefaults;
using QEVSettings::PreferenceDictionary;
using QEVSettings::PreferenceValue;

namespace {

constexpr std::size_t kLongestValue = 60;
constexpr std::string_view kStoreMark = "SQLite format 3";

Result<PreferenceDictionary> valuesOfStore(const std::filesystem::path& file) {
  const auto store = UserDefaults::open(file, UserDefaults::Access::readOnly);
  if (const auto status = store->status()) return *status;
  return store->dictionaryRepresentation();
}

// The values of a profile, or of a file: a store, or a list such as prefs export writes.
Result<PreferenceDictionary> valuesOf(const std::string& other) {
  std::error_code error;
  const auto name = checkedProfileName(other);
  if (name && profileExists(*name)) {
    const auto file = profileFile(*name);
    if (!std::filesystem::exists(file, error)) return PreferenceDictionary();
    return valuesOfStore(file);
  }
  if (!std::filesystem::exists(other, error))
    return Error{"there is no profile and no file “" + other + "”; profiles list shows profiles"};
  auto bytes = foundation::readFile(other);
  if (!bytes) return bytes.error();
  if (bytes->starts_with(kStoreMark)) return valuesOfStore(other);
  auto list = QEVSettings::readPreferenceList(*std::move(bytes));
  return list ? list : Error{other + ": " + list.error().message};
}

std::string shown(const PreferenceValue* value) {
  return value != nullptr ? onOneLine(shortened(readableForm(*value), kLongestValue)) : "none";
}

const PreferenceValue* findIn(const PreferenceDictionary& values, const std::string& key) {
  const auto found = values.find(key);
  return found != values.end() ? &found->second : nullptr;
}

bool areSame(const std::string& key, const PreferenceValue* a, const PreferenceValue* b) {
  if (a == nullptr || b == nullptr) return a == b;
  const auto* known = hostCatalogue().find(key);
  return known != nullptr ? meanTheSame(*known, *a, *b) : *a == *b;
}

void print(std::ostream& out, const std::string& key, const PreferenceValue* mine,
           const PreferenceValue* other, std::string_view nameOfOther) {
  out << onOneLine(key) << "\n  value: " << shown(mine) << "\n  " << nameOfOther << ": "
      << shown(other) << '\n';
}

// What is in force and differs from the default. A key without a default differs when it is set.
void printAgainstDefaults(std::ostream& out) {
  for (const std::string& key : ProgramPreferences::inForce().keys()) {
    if (key == QEVSettings::kPrefsSchemaVersion.name) continue;
    const auto* known = hostCatalogue().find(key);
    const auto standard = known != nullptr ? defaultOf(*known) : std::nullopt;
    const auto value = ProgramPreferences::inForce().objectForKey(key);
    const PreferenceValue* const mine = value ? &*value : nullptr;
    const PreferenceValue* const other = standard ? &*standard : nullptr;
    if (!areSame(key, mine, other)) print(out, key, mine, other, "default");
  }
}

}  // namespace

Failed run(const DiffPreferencesCommand& command, Console& console) {
  if (command.other.empty()) {
    printAgainstDefaults(console.out);
    return storeFailure(ProgramPreferences::store());
  }
  const auto others = valuesOf(command.other);
  if (!others) return Failure{.message = others.error().message};
  const PreferenceDictionary values = ProgramPreferences::store().dictionaryRepresentation();
  if (auto failure = storeFailure(ProgramPreferences::store())) return failure;
  std::set<std::string> keys;
  for (const auto& [key, value] : values) keys.insert(key);
  for (const auto& [key, value] : *others) keys.insert(key);
  for (const std::string& key : keys) {
    const auto* mine = findIn(values, key);
    const auto* other = findIn(*others, key);
    if (!areSame(key, mine, other)) print(console.out, key, mine, other, onOneLine(command.other));
  }
  return std::nullopt;
}

}  // namespace zorvantine
