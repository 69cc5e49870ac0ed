#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commands/Commands.hpp"

namespace zorvantine {

using foundation::Error;
using foundation::Result;
using QEVSettings::PreferenceValue;

namespace {

Failure unknownKey(const std::string& key, const std::string& remedy) {
  const std::string suggestion = suggestionFor(key);
  return {.code = ExitCode::noSuchKey,
          .message = "“" + key + "” is no setting; " + suggestion +
                     (suggestion.empty() ? "" : " If not, ") + remedy};
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
  if (known == nullptr && command.text)
    return unknownKey(command.key, "name the type of its value, as in --string VALUE");
  if (known == nullptr && !command.isForced && !suggestionFor(command.key).empty())
    return unknownKey(command.key, "store it with --force");
  auto value =
      known != nullptr ? valueOf(command, *known) : Result<PreferenceValue>(*command.value);
  if (!value) return Failure{.code = ExitCode::usage, .message = value.error().message};
  Console::store().setObject(*std::move(value), command.key);
  return storeFailure(Console::store());
}

}  // namespace zorvantine
