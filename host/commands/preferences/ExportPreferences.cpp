// SPDX-License-Identifier: MIT
#include "commandline/TextForm.hpp"
#include "commands/Commands.hpp"
#include "foundation/PropertyList.hpp"
#include "preferences/ProgramPreferences.hpp"

#include <ostream>

namespace zorvantine {

Failed run(const ExportPreferencesCommand& command, Console& console) {
  const auto preferences = ProgramPreferences::store().dictionaryRepresentation();
  if (auto failure = storeFailure(ProgramPreferences::store())) return failure;
  if (command.file != "-") {
    const auto outcome = foundation::writePropertyList(preferences, command.file, command.format);
    if (!outcome) return Failure{.message = outcome.error().message};
    return std::nullopt;
  }
  const auto list = foundation::propertyListBytes(preferences, command.format);
  if (!list) return Failure{.message = list.error().message};
  console.out << (console.outIsTerminal ? escapedLines(*list) : *list);
  return std::nullopt;
}

}  // namespace zorvantine
