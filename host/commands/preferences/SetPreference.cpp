// SPDX-License-Identifier: MIT
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <iostream>

namespace zorvantine {

using foundation::Error;
using foundation::Result;
using QEVSettings::PreferenceValue;

namespace {

// A key that no setting of the program has. An analyzer of somebody else may read it.
Failure unknownKey(const std::string& key) {
  const std::string suggestion = suggestionFor(key);
  return {.code = ExitCode::noSuchKey,
          .message = "“" + key + "” is no setting; " + suggestion +
                     (suggestion.empty() ? "" : " If not, ") +
                     "name the type of its value, as in --string VALUE"};
}

void noteSuggestion(const std::string& key) {
  const std::string suggestion = suggestionFor(key);
  if (suggestion.empty()) return;
  std::cerr << "zorvantine: "
            << onOneLine("“" + key + "” is no setting, and is stored; " + suggestion) << std::endl;
}

// What to store, or why nothing is stored.
Result<PreferenceValue> valueOf(const SetPreferenceCommand& command,
                                const QEVSettings::PreferenceDescriptor& known) {
  if (command.text) return valueFor(known, *command.text);
  if (!command.isForced) {
    if (auto outcome = checkValue(known, *command.value); !outcome)
      return Error{outcome.error().message + "; --force stores the value all the same"};
  }
  return *command.value;
}

}  // namespace

Failed run(const SetPreferenceCommand& command, Console&) {
  if (auto failure = lockedFailure(command.key)) return failure;
  const auto* known = hostCatalogue().find(command.key);
  if (known == nullptr && command.text) return unknownKey(command.key);
  if (known == nullptr && !command.isForced) noteSuggestion(command.key);
  auto value =
      known != nullptr ? valueOf(command, *known) : Result<PreferenceValue>(*command.value);
  if (!value) return Failure{.code = ExitCode::usage, .message = value.error().message};
  ProgramPreferences::store().setObject(*std::move(value), command.key);
  return storeFailure(ProgramPreferences::store());
}

}  // namespace zorvantine
