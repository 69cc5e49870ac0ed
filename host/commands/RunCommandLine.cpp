// SPDX-License-Identifier: MIT
#include "commands/RunCommandLine.hpp"

#include "QEVSettings/preferences/HostIdentity.hpp"
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commandline/ExitCode.hpp"
#include "commandline/Messages.hpp"
#include "commandline/version.hpp"
#include "commands/Commands.hpp"
#include "commands/Options.hpp"
#include "commands/help/Help.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/Translation.hpp"
#include "foundation/UserDefaults.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "profiles/Profiles.hpp"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace zorvantine {

using foundation::translated;
using foundation::UserDefaults;

namespace {

int report(const Failure& failure, Messages& messages) {
  std::cout.flush();
  messages.say(failure.message);
  return static_cast<int>(failure.code);
}

// A store file that was named and does not exist is an error in the name. The user's own store
// need not exist: it is empty until something is stored.
Failed missingStore(const Options& options) {
  std::error_code error;
  if (!options.store || std::filesystem::symlink_status(*options.store, error).type() !=
                            std::filesystem::file_type::not_found) {
    return std::nullopt;
  }
  return Failure{
      .message = translated(
          "there is no store %1; check its name, or make it with prefs set or prefs import",
          {options.store->string()})};
}

// Makes the profile that was named the store of the process.
Failed chooseProfile(const Options& options) {
  if (options.profile.empty()) return std::nullopt;
  if (const auto outcome = checkProfile(options.profile); !outcome)
    return Failure{.message = outcome.error().message};
  useProfile(options.profile);
  return std::nullopt;
}

// Puts what --set gives into force, with the types of the settings.
Failed takeValuesForThisRun(const Options& options) {
  QEVSettings::PreferenceDictionary values;
  for (const std::string& each : options.forThisRun) {
    const std::size_t equals = each.find('=');
    const std::string key = each.substr(0, equals);
    const auto* known = hostCatalogue().find(key);
    if (known == nullptr) {
      const std::string suggestion = suggestionFor(key);
      return Failure{.code = ExitCode::usage,
                     .message = "--set: “" + key + "” is no setting; " +
                                (suggestion.empty() ? "prefs describe shows all" : suggestion)};
    }
    auto value = valueFor(*known, std::string_view(each).substr(equals + 1));
    if (!value)
      return Failure{.code = ExitCode::usage, .message = "--set: " + value.error().message};
    values.insert_or_assign(key, *std::move(value));
  }
  if (!values.empty()) ProgramPreferences::setForThisRun(std::move(values));
  return std::nullopt;
}

// Opens the store in the way that the command uses it, and reports how that went.
Failed openStore(const Options& options, Messages& messages) {
  if (auto failure = chooseProfile(options)) return failure;
  if (auto failure = takeValuesForThisRun(options)) return failure;
  if (options.store) UserDefaults::setStandardFile(*options.store);
  const bool changesNothing =
      options.storeUse == StoreUse::reads || options.storeUse == StoreUse::inspects;
  if (changesNothing) UserDefaults::setStandardAccess(UserDefaults::Access::readOnly);
  if (options.storeUse == StoreUse::writes)
    UserDefaults::setStandardAccess(UserDefaults::Access::shortLived);
  if (changesNothing || options.storeUse == StoreUse::follows) {
    if (auto failure = missingStore(options)) return failure;
  }
  if (!opensStore(options.storeUse)) return std::nullopt;
  messages.say(ProgramPreferences::store().opening().message);
  auto failure = storeFailure(ProgramPreferences::store());
  if (!failure || options.storeUse != StoreUse::shows) return failure;
  messages.say(failure->message);
  return std::nullopt;
}

// Waits until what the command stored is on the disk.
Failed waitForDisk() {
  const auto outcome = ProgramPreferences::store().synchronize();
  if (outcome) return std::nullopt;
  return Failure{.code = ExitCode::unavailable, .message = outcome.error().message};
}

// In an installed tree the other programs are in libexec, and share the resources of zorvantine.
void useInstalledResources() {
  using foundation::Bundle;
  const auto resources = (Bundle::mainBundle().folder() / ZORVANTINE_RESOURCES).lexically_normal();
  std::error_code error;
  if (std::filesystem::is_directory(resources, error)) Bundle::setMainResourceFolder(resources);
}

Failed carryOut(const Options& options, Messages& messages, Program program) {
  // The other programs open the store for the commands that they are started for.
  const bool isHandedOver = program == Program::shell && options.program != program;
  Failed failed = isHandedOver ? std::nullopt : openStore(options, messages);
  if (failed) return failed;
  if (options.runsUntilEnded) messages.logDiagnosticsAsTheyCome();
  Console console{.in = std::cin, .out = std::cout, .outIsTerminal = ::isatty(STDOUT_FILENO) == 1};
  failed = options.invocation.run(console);
  if (!failed && !isHandedOver && options.storeUse == StoreUse::writes) failed = waitForDisk();
  for (const std::string& problem : ProgramPreferences::layerProblems()) messages.say(problem);
  // The store may have been recovered, and so opened again, while the command ran.
  if (opensStore(options.storeUse)) messages.say(ProgramPreferences::store().opening().message);
  // The message of a failed command replaces the diagnostics.
  if (!failed) messages.logDiagnostics();
  return failed;
}

}  // namespace

int runCommandLine(int argc, char** argv, Program program) {
  std::ios::sync_with_stdio(false);
  QEVSettings::HostIdentity::set(
      {.id = "zorvantine", .displayName = "Zorvantine", .version = std::string(versionText())});
  if (program != Program::shell) useInstalledResources();
  // Outlives the store, which may report something when it is closed.
  static Messages messages;
  const std::vector<std::string_view> words(argv + (argc > 0 ? 1 : 0), argv + argc);
  const auto options = parseOptions(words);
  if (!options) {
    return report({.code = ExitCode::usage,
                   .message = translated("%1; zorvantine --help shows what there is",
                                         {options.error().message})},
                  messages);
  }
  if (const auto failure = carryOut(*options, messages, program)) return report(*failure, messages);
  if (!std::cout.flush()) {
    return report(
        {.message = translated("the result could not be written; make room for it, and try again")},
        messages);
  }
  return EXIT_SUCCESS;
}

}  // namespace zorvantine
