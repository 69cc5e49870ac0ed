// SPDX-License-Identifier: MIT
#include "commands/CommandEntry.hpp"
#include "commands/SharedArguments.hpp"

namespace zorvantine {

namespace {

Arguments analyzersArguments(ListAnalyzersCommand& command) {
  return {.options = {formatOption(command.format)}};
}

Arguments validateArguments(ValidatePortsCommand& command) {
  return {.options = {formatOption(command.format)},
          .operands = {{.name = "TEXT",
                        .needs = "a TEXT, or - for standard input",
                        .take = [&command](std::string_view word) {
                          command.text = word;
                          return foundation::done();
                        }}}};
}

}  // namespace

std::vector<CommandEntry> analyzerCommands() {
  return {
      command({.name = "analyzers",
               .chapter = Chapter::analyzers,
               .help = "Print what is loaded: ids, keys, options, ports.",
               .storeUse = StoreUse::reads,
               .program = Program::pages},
              analyzersArguments),
      command({.name = "ports validate",
               .chapter = Chapter::analyzers,
               .help = "Put a list of ports in order. A TEXT of - is read from standard input. "
                       "Exits with 1 when something was left out."},
              validateArguments),
  };
}

}  // namespace zorvantine
