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
  inspects,  // looks at its file without opening the store
  reads,     // opens it for reading: nothing on disk is created or changed
  follows,   // opens it and hears of changes by others; a store that was named has to be there
  writes,    // opens it for writing, which makes a store that is missing
  shows,     // as `writes`, in a window, which is of use without a file too
};

// Whether the command opens the store.
constexpr bool opensStore(StoreUse use) {
  return use != StoreUse::none && use != StoreUse::inspects;
}

// The chapters of help and of the manual.
enum class Chapter { window, preferences, analyzers, help };

// One call of a command: where the values of its arguments go, and what it runs then.
struct Invocation {
  Arguments arguments;
  std::function<Failed(Console&)> run;
  std::any command;  // a std::shared_ptr to the command's values
};

// A command: all that reading, help, the manual and running it need to know.
struct CommandEntry {
  std::string_view name;  // "prefs get"
  Chapter chapter = Chapter::window;
  std::string_view help;  // sentences
  StoreUse storeUse = StoreUse::none;
  bool runsUntilEnded = false;
  bool needsWindow = false;  // is carried out by the window program, which alone links Qt
  std::function<Invocation()> prepare{};
};

// Completes an entry whose values are a `Command`, carried out by `run(const Command&, Console&)`.
// `describe` says which arguments fill them.
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

// Every command, chapter by chapter. The first one is carried out when none is named.
const std::vector<CommandEntry>& commandTable();

std::vector<CommandEntry> windowCommands();
std::vector<CommandEntry> preferencesCommands();
std::vector<CommandEntry> analyzerCommands();
std::vector<CommandEntry> helpCommands();

}  // namespace zorvantine
