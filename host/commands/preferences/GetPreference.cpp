// SPDX-License-Identifier: MIT
#include "QEVSettings/SettingDefault.hpp"
#include "catalogue/HostSettings.hpp"
#include "catalogue/SettingValues.hpp"
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <ostream>

namespace zorvantine {

namespace {

using Part = GetPreferenceCommand::Part;

void print(const std::string& text, Console& console) {
  // Only a terminal needs escapes; a program gets the stored text.
  console.out << (console.outIsTerminal ? onOneLine(text) : text) << '\n';
}

}  // namespace

Failed run(const GetPreferenceCommand& command, Console& console) {
  auto value = ProgramPreferences::inForce().objectForKey(command.key);
  if (auto failure = storeFailure(ProgramPreferences::store())) return failure;
  if (command.part == Part::origin && value) {
    print(std::string(nameOf(ProgramPreferences::inForce().origin(command.key))), console);
    return std::nullopt;
  }
  if (!value || command.part != Part::value) {
    const auto* known = hostCatalogue().find(command.key);
    if (known == nullptr && (!value || command.part == Part::standard))
      return noSuchKey(command.key);
    value = known != nullptr ? defaultOf(*known) : std::nullopt;
  }
  if (command.part == Part::origin) {
    print(std::string(nameOf(QEVSettings::PreferenceOrigin::standard)), console);
  } else {
    print(value ? textForm(*value) : "", console);
  }
  return std::nullopt;
}

}  // namespace zorvantine
