// SPDX-License-Identifier: MIT
#include "commands/CommandEntry.hpp"
#include "commands/Commands.hpp"

#include <string>

namespace zorvantine {

namespace {

Arguments helpArguments(HelpCommand& command) {
  return {.options = {choice<HelpFormat>("--format", "text|man|bash|zsh|fish",
                                         "Print text, the part of the manual page about commands, "
                                         "or completions for a shell.",
                                         command.format,
                                         {{"text", HelpFormat::text},
                                          {"man", HelpFormat::manual},
                                          {"bash", HelpFormat::bash},
                                          {"zsh", HelpFormat::zsh},
                                          {"fish", HelpFormat::fish}})},
          .operands = {{.name = "COMMAND",
                        .needs = {},
                        .take =
                            [&command](std::string_view word) {
                              command.topic +=
                                  (command.topic.empty() ? "" : " ") + std::string(word);
                              return foundation::done();
                            },
                        .repeats = true}}};
}

}  // namespace

std::vector<CommandEntry> helpCommands() {
  return {command({.name = "help",
                   .chapter = Chapter::help,
                   .help = "Print help, on everything or on one command."},
                  helpArguments)};
}

}  // namespace zorvantine
