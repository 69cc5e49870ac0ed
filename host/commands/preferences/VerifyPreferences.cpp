// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/QEVPreferencesMigrationSteps.hpp"
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/PreferencesVerification.hpp"
#include "foundation/Translation.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <filesystem>
#include <ostream>
#include <system_error>

namespace zorvantine {

using foundation::translated;

namespace {

using QEVSettings::QEVPreferencesMigration;

// Reports keys that an older release wrote, before this release was first started or since then.
void reportOlderForms(const foundation::UserDefaults& store, std::ostream& out) {
  const std::string key(QEVPreferencesMigration::schemaVersionKey);
  const auto schema = store.integerForKey(key);
  // This release does not know which forms a newer one calls old.
  if (schema > QEVPreferencesMigration::currentSchemaVersion) return;
  const auto keys = QEVSettings::keysInOlderForm(store.dictionaryRepresentation());
  if (keys.empty()) return;
  // The migration of a store of schema 1 or later leaves colours alone.
  const bool needsEveryStep = schema >= 1;
  out << (keys.size() == 1 ? "One key is" : std::to_string(keys.size()) + " keys are")
      << " in the form of an older release. "
      << (needsEveryStep ? "To bring up to date what it wrote, run “zorvantine prefs set " + key +
                               " --int 0” and then “zorvantine prefs migrate”:\n"
                         : "The next start of the window brings up to date what it wrote, and so "
                           "does “zorvantine prefs migrate”:\n");
  for (const std::string& name : keys) out << "  " << onOneLine(name) << '\n';
}

// Reports values that do not fit their settings. The pages show the default in their place.
void reportMisfits(const foundation::UserDefaults& store, std::ostream& out) {
  for (const auto& [key, value] : store.dictionaryRepresentation()) {
    const auto* known = hostCatalogue().find(key);
    const auto outcome = known != nullptr ? checkValue(*known, value) : foundation::done();
    if (outcome) continue;
    out << onOneLine(outcome.error().message + "; the stored value of the type " +
                     std::string(nameOf(value.type())) +
                     " does not fit. To bring back the default, run “zorvantine prefs reset " +
                     key + "”.")
        << '\n';
  }
}

}  // namespace

Failed run(const VerifyPreferencesCommand&, Console& console) {
  const auto file = foundation::UserDefaults::standardFile();
  // Opening the store reports why no file can be used.
  if (file.empty()) return storeFailure(ProgramPreferences::store());
  const auto verification = foundation::verifyPreferences(file);
  for (const std::string& sentence : verification.sentences)
    console.out << onOneLine(sentence) << '\n';
  if (!verification.isGood) {
    return Failure{.message =
                       translated("the store is not in order, as the lines on standard output "
                                  "tell; the next command that writes recovers what can be had")};
  }
  std::error_code error;
  if (std::filesystem::exists(file, error)) {
    reportOlderForms(ProgramPreferences::store(), console.out);
    reportMisfits(ProgramPreferences::store(), console.out);
  }
  return std::nullopt;
}

}  // namespace zorvantine
