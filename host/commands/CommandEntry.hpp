// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/Arguments.hpp"
#include "commandline/ExitCode.hpp"

#include <any>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace zorvantine {

struct Console;

// What a command does with the preferences store.
enum class StoreUse {
  none,      // nothing
  inspects,  // reads its file without opening the store
  reads,     // opens it for reading: nothing on disk is created or changed
  follows,   // opens it to observe changes; a store that was named has to exist
  writes,    // opens it for writing, which makes a store that is missing
  shows,     // as `writes`; a store that cannot be opened does not stop the command
};

// Whether the command opens the store.
constexpr bool opensStore(StoreUse use) {
  return use != StoreUse::none && use != StoreUse::inspects;
}

// The programs of the host. Each has the whole table of commands, and hands the commands of the
// others over. A program of the shell starts several times as fast as one that links Qt or views.
enum class Program {
  shell,   // zorvantine
  pages,   // zorvantine-pages, which links the pages and analyzers but not Qt
  window,  // zorvantine-window, which links Qt
};

// The chapters of help and of the manual.
enum class Chapter { window, preferences, profiles, analyzers, help };

// One use of a command: the arguments that set its values, and what runs with these values.
struct Invocation {
  Arguments arguments;
  std::function<Failed(Console&)> run;
  std::any command;  // a std::shared_ptr to the command's values
};

// A command, as reading the command line, help, the manual page and completions need it.
struct CommandEntry {
  std::string_view name;  // "prefs get"
  Chapter chapter = Chapter::window;
  std::string_view help;  // sentences
  StoreUse storeUse = StoreUse::none;
  bool runsUntilEnded = false;
  Program program = Program::shell;  // carries the command out
  std::function<Invocation()> prepare{};
};

// Completes the entry of a command whose values are a `Command`. `describe` returns the arguments
// that set them, and `run(const Command&, Console&)` carries the command out.
template <class Command>
CommandEntry command(CommandEntry entry, Arguments (*describe)(Command&)) {
  entry.prepare = [describe] {
    const auto values = std::make_shared<Command>();
    return Invocation{.arguments = describe(*values),
                      .run = [values](Console& console) { return run(*values, console); },
                      .command = values};
  };
  return entry;
}

// Every command, chapter by chapter. The first one runs when none is named.
const std::vector<CommandEntry>& commandTable();

std::vector<CommandEntry> windowCommands();
std::vector<CommandEntry> preferencesCommands();
std::vector<CommandEntry> profileCommands();
std::vector<CommandEntry> analyzerCommands();
std::vector<CommandEntry> helpCommands();

}  // namespace zorvantine
