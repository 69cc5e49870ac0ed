#include "commandline/Options.hpp"

#include "commandline/Translation.hpp"
#include "commands/Commands.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::Result;

namespace {

// The position of the command, which --store FILE may precede.
std::size_t commandPosition(Words words) {
  std::size_t at = 0;
  while (at < words.size() && (words[at] == "--store" || words[at].starts_with("--store="))) {
    at += words[at] == "--store" ? 2 : 1;
  }
  return std::min(at, words.size());
}

Error noSuchCommand(std::string_view word) {
  std::vector<std::string_view> known;
  for (const CommandEntry& entry : commandTable()) {
    if (entry.name.starts_with(std::string(word) + " "))
      known.push_back(entry.name.substr(word.size() + 1));
  }
  if (known.empty()) return Error{translated("there is no command “%1”", {word})};
  return Error{translated("%1 needs %2 after it", {word, alternatives(known)})};
}

// A command without arguments and without a store.
template <class Command>
Options plain(Command command) {
  auto values = std::make_shared<Command>(std::move(command));
  return {.invocation = {.arguments = {},
                         .run = [values](Console& console) { return run(*values, console); },
                         .command = values}};
}

Result<Options> parseCommand(const CommandEntry& entry, Words words, bool isNamed) {
  Invocation invocation = entry.prepare();
  ProgramOptions program;
  for (Option& option : programOptions(program))
    invocation.arguments.options.push_back(std::move(option));
  const Outcome outcome = readArguments(entry.name, words, invocation.arguments);
  if (program.wantsHelp) return plain(HelpCommand{.topic = isNamed ? std::string(entry.name) : ""});
  if (!outcome) return outcome.error();
  if (program.wantsVersion) return plain(VersionCommand{});
  return Options{.store = std::move(program.store),
                 .storeUse = entry.storeUse,
                 .runsUntilEnded = entry.runsUntilEnded,
                 .program = entry.program,
                 .invocation = std::move(invocation)};
}

}  // namespace

std::vector<Option> programOptions(ProgramOptions& options) {
  Option shortHelp = flag("-h", {}, options.wantsHelp, true);
  return {{.name = "--store",
           .value = "FILE",
           .help = "Use another store than $XDG_CONFIG_HOME/zorvantine/preferences.sqlite (in "
                   "~/.config without "
                   "XDG_CONFIG_HOME). Commands that change preferences make it when it is missing.",
           .take =
               [&options](std::string_view value) {
                 if (value.empty())
                   return Outcome(Error{translated("--store needs the name of a file")});
                 options.store = value;
                 return done();
               }},
          flag("--help", "Print help on the command, or on everything without one.",
               options.wantsHelp, true),
          std::move(shortHelp),
          flag("--version", "Print the version.", options.wantsVersion, true)};
}

Result<Options> parseOptions(Words words) {
  std::vector<std::string_view> rest(words.begin(), words.end());
  const auto first = rest.begin() + static_cast<std::ptrdiff_t>(commandPosition(words));
  if (first == rest.end() || first->starts_with('-'))
    return parseCommand(commandTable().front(), rest, false);

  const std::string_view word = *first;
  const std::string both =
      std::string(word) + ' ' + std::string(first + 1 != rest.end() ? first[1] : "");
  const auto found = std::ranges::find_if(commandTable(), [&](const CommandEntry& entry) {
    return entry.name == word || entry.name == both;
  });
  if (found == commandTable().end()) {
    const bool wantsHelp = first + 1 != rest.end() && (first[1] == "--help" || first[1] == "-h");
    if (wantsHelp) return plain(HelpCommand{.topic = std::string(word)});
    return noSuchCommand(word);
  }
  rest.erase(first, first + (found->name == word ? 1 : 2));
  return parseCommand(*found, rest, true);
}

}  // namespace zorvantine
