// SPDX-License-Identifier: MIT
#include "commands/Options.hpp"

#include "commands/Commands.hpp"
#include "foundation/Translation.hpp"
#include "profiles/Profiles.hpp"

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
using foundation::translated;

namespace {

// The position of the command, which some options with a value may precede.
std::size_t commandPosition(Words words) {
  std::size_t at = 0;
  while (at < words.size()) {
    const std::string_view name = words[at].substr(0, words[at].find('='));
    if (name != "--store" && name != "--profile" && name != "--set") break;
    at += name.size() == words[at].size() ? 2 : 1;
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
  if (program.store && !program.profile.empty())
    return Error{"--store and --profile exclude each other; give one"};
  if (program.wantsVersion) return plain(VersionCommand{});
  return Options{.store = std::move(program.store),
                 .profile = std::move(program.profile),
                 .forThisRun = std::move(program.forThisRun),
                 .storeUse = entry.storeUse,
                 .runsUntilEnded = entry.runsUntilEnded,
                 .program = entry.program,
                 .invocation = std::move(invocation)};
}

}  // namespace

std::vector<Option> programOptions(ProgramOptions& options) {
  Option shortHelp = flag("-h", {}, options.wantsHelp, true);
  return {
      {.name = "--store",
       .value = "FILE",
       .help =
           "Use another store than $XDG_CONFIG_HOME/zorvantine/preferences.sqlite (in ~/.config "
           "without XDG_CONFIG_HOME). Commands that change preferences make it when it is missing.",
       .take =
           [&options](std::string_view value) {
             if (value.empty())
               return Outcome(Error{translated("--store needs the name of a file")});
             options.store = value;
             return done();
           }},
      {.name = "--profile",
       .value = "NAME",
       .help = "Use the profile of that name instead of the standard one.",
       .take =
           [&options](std::string_view value) {
             auto name = checkedProfileName(value);
             if (!name) return Outcome(name.error());
             options.profile = *std::move(name);
             return done();
           }},
      {.name = "--set",
       .value = "KEY=VALUE",
       .help = "Put a setting in force for this run, unless an administrator locked it. Nothing is "
               "stored.",
       .take =
           [&options](std::string_view value) {
             if (value.find('=') == std::string_view::npos || value.starts_with('='))
               return Outcome(Error{"--set needs KEY=VALUE"});
             options.forThisRun.emplace_back(value);
             return done();
           }},
      flag("--help", "Print help on the command, or on everything without one.", options.wantsHelp,
           true),
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
