// SPDX-License-Identifier: MIT
#include "commands/CommandEntry.hpp"
#include "commands/SharedArguments.hpp"
#include "profiles/Profiles.hpp"

#include <utility>

namespace zorvantine {

using foundation::done;
using foundation::Outcome;

namespace {

Take nameTaker(std::string& target) {
  return [&target](std::string_view word) {
    auto name = checkedProfileName(word);
    if (!name) return Outcome(name.error());
    target = *std::move(name);
    return done();
  };
}

Operand nameOperand(std::string_view operand, std::string_view needs, std::string& target) {
  return {.name = operand, .needs = needs, .take = nameTaker(target)};
}

Arguments listArguments(ListProfilesCommand& command) {
  return {.options = {formatOption(command.format)}};
}

Arguments createArguments(CreateProfileCommand& command) {
  return {.options = {{.name = "--from",
                       .value = "NAME",
                       .help = "Begin with the values of the profile of that name.",
                       .take = nameTaker(command.from)}},
          .operands = {nameOperand("PROFILE", "a PROFILE", command.name)}};
}

Arguments renameArguments(RenameProfileCommand& command) {
  return {.operands = {nameOperand("PROFILE", "a PROFILE", command.name),
                       nameOperand("NAME", "a new NAME", command.newName)}};
}

Arguments deleteArguments(DeleteProfileCommand& command) {
  return {.operands = {nameOperand("PROFILE", "a PROFILE", command.name)}};
}

template <class Command>
Arguments profileAndFile(Command& command) {
  return {
      .operands = {nameOperand("PROFILE", "a PROFILE", command.name), fileOperand(command.file)}};
}

}  // namespace

std::vector<CommandEntry> profileCommands() {
  constexpr auto chapter = Chapter::profiles;
  return {
      command({.name = "profiles list",
               .chapter = chapter,
               .help = "Print the names of the profiles. Each is a set of preferences of its own; "
                       "--profile uses one."},
              listArguments),
      command({.name = "profiles create", .chapter = chapter, .help = "Make a profile."},
              createArguments),
      command({.name = "profiles rename", .chapter = chapter, .help = "Rename a profile."},
              renameArguments),
      command({.name = "profiles delete",
               .chapter = chapter,
               .help = "Delete a profile and its preferences."},
              deleteArguments),
      command({.name = "profiles export",
               .chapter = chapter,
               .help = "Write a profile to a property list."},
              profileAndFile<ExportProfileCommand>),
      command({.name = "profiles import",
               .chapter = chapter,
               .help = "Take a list over into a profile, as prefs import does; the profile is made "
                       "when it is missing."},
              profileAndFile<ImportProfileCommand>),
  };
}

}  // namespace zorvantine
