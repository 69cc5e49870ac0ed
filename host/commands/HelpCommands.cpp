#include "commands/CommandEntry.hpp"
#include "commands/Commands.hpp"

#include <string>

namespace zorvantine {

namespace {

Arguments helpArguments(HelpCommand& command) {
  return {.options = {choice<HelpFormat>(
              "--format", "text|man", "Print text, or that part of the manual page.",
              command.format, {{"text", HelpFormat::text}, {"man", HelpFormat::manual}})},
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
