// SPDX-License-Identifier: MIT
#include "commands/CommandEntry.hpp"
#include "commands/SharedArguments.hpp"
#include "foundation/Translation.hpp"

#include <utility>

namespace zorvantine {

using foundation::done;
using foundation::Error;
using foundation::Outcome;
using foundation::translated;

namespace {

Arguments settingsArguments(SettingsCommand& command) {
  Arguments arguments{.options = {tabOption(command.tab)},
                      .check = [&command] { return checkTab(command.tab, command.window); }};
  addWindowOptions(arguments.options, command.window);
  return arguments;
}

Arguments runArguments(RunCommand& command) {
  Arguments arguments;
  addWindowOptions(arguments.options, command.window);
  return arguments;
}

Arguments snapshotArguments(SnapshotCommand& command) {
  Option out{.name = "--out",
             .value = "DIR",
             .help = "The folder that the pictures go to; made when it is missing.",
             .presence = Presence::required,
             .take = [&command](std::string_view folder) {
               command.folder = folder;
               return done();
             }};
  Arguments arguments{
      .options = {std::move(out), tabOption(command.tab),
                  choice<std::optional<Appearance>>(
                      "--appearance", "light|dark",
                      "The appearance, instead of the one that the preferences name.",
                      command.appearance,
                      {{"light", Appearance::light}, {"dark", Appearance::dark}}),
                  choice<int>("--scale", "1|2", "The number of pixels a point.", command.scale,
                              {{"1", 1}, {"2", 2}})},
      .check = [&command] {
        if (command.folder.empty())
          return Outcome(
              Error{translated("snapshot needs --out DIR, the folder that the pictures go to")});
        return checkTab(command.tab, command.window);
      }};
  addWindowOptions(arguments.options, command.window);
  return arguments;
}

Arguments describeArguments(DescribeCommand& command) {
  Arguments arguments{.options = {tabOption(command.tab), formatOption(command.format)},
                      .check = [&command] { return checkTab(command.tab, command.window); }};
  addWindowOptions(arguments.options, command.window);
  return arguments;
}

Arguments findArguments(FindCommand& command) {
  return {.options = {formatOption(command.format)},
          .operands = {{.name = "WORD",
                        .needs = "a WORD",
                        .take =
                            [&command](std::string_view word) {
                              command.words.emplace_back(word);
                              return done();
                            },
                        .repeats = true}},
          .check = [&command] {
            return command.words.empty()
                       ? Outcome(Error{translated("find needs a WORD to look for")})
                       : done();
          }};
}

}  // namespace

std::vector<CommandEntry> windowCommands() {
  return {
      command({.name = "settings",
               .help = "Open the settings window; also what happens without a COMMAND. Without a "
                       "display, draw it into the folder zorvantine-settings instead.",
               .storeUse = StoreUse::shows,
               .runsUntilEnded = true,
               .program = Program::window},
              settingsArguments),
      command({.name = "run",
               .help = "Open the main window: sample packets, listed as the settings say, and a "
                       "menu that opens the settings.",
               .storeUse = StoreUse::shows,
               .runsUntilEnded = true,
               .program = Program::window},
              runArguments),
      command({.name = "snapshot",
               .help = "Draw the settings window into DIR, one picture TAB.png a tab. Needs no "
                       "display, and changes no preference.",
               .storeUse = StoreUse::reads,
               .program = Program::window},
              snapshotArguments),
      command({.name = "describe",
               .help = "Print what is on a page: the kind, role, label, value, help and note of "
                       "each element, whether it is enabled and selected, what it looks like "
                       "(visual), and its frame in points. Changes no preference.",
               .storeUse = StoreUse::reads,
               .program = Program::pages},
              describeArguments),
      command(
          {.name = "find",
           .help =
               "Print where the settings window has each WORD, the best first: in titles, "
               "purposes, analyzers, protocols, ports and values. The word is:changed stands for "
               "the settings that differ from their defaults. Exits with 1 when nothing is found.",
           .storeUse = StoreUse::reads},
          findArguments),
  };
}

}  // namespace zorvantine
