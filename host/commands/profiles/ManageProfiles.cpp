// SPDX-License-Identifier: MIT
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/JSONWriter.hpp"
#include "preferences/ProgramPreferences.hpp"
#include "profiles/Profiles.hpp"

#include <ostream>

namespace zorvantine {

using foundation::Outcome;

namespace {

Failed failureOf(const Outcome& outcome) {
  return outcome ? std::nullopt : Failed(Failure{.message = outcome.error().message});
}

Failed open(const std::string& name) {
  useProfile(name);
  return storeFailure(ProgramPreferences::store());
}

}  // namespace

Failed run(const ListProfilesCommand& command, Console& console) {
  const auto names = profiles();
  if (command.format == OutputFormat::text) {
    for (const std::string& name : names) console.out << onOneLine(name) << '\n';
    return std::nullopt;
  }
  foundation::JSONWriter writer;
  writer.beginArray();
  for (const std::string& name : names) writer.string(name);
  console.out << writer.endArray().text() << '\n';
  return std::nullopt;
}

Failed run(const CreateProfileCommand& command, Console&) {
  return failureOf(createProfile(command.name, command.from));
}

Failed run(const RenameProfileCommand& command, Console&) {
  return failureOf(renameProfile(command.name, command.newName));
}

Failed run(const DeleteProfileCommand& command, Console&) {
  return failureOf(deleteProfile(command.name));
}

Failed run(const ExportProfileCommand& command, Console& console) {
  if (auto failure = failureOf(checkProfile(command.name))) return failure;
  foundation::UserDefaults::setStandardAccess(foundation::UserDefaults::Access::readOnly);
  if (auto failure = open(command.name)) return failure;
  return run(ExportPreferencesCommand{.file = command.file}, console);
}

Failed run(const ImportProfileCommand& command, Console& console) {
  if (auto failure = open(command.name)) return failure;
  return run(ImportPreferencesCommand{.file = command.file}, console);
}

}  // namespace zorvantine
