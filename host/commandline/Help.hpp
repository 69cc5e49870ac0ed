#pragma once

#include "commands/CommandEntry.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// One page, made from the table of commands: every command, the options, and what the exit codes
// mean.
std::string helpText();

// What one command does, and its options.
std::string helpText(const CommandEntry& entry);

// The part of the manual page that the table says, in the language of man pages.
std::string manualText();

// A command as it is typed, as in "prefs export FILE [--format xml|binary]".
std::string synopsis(const CommandEntry& entry);

// As in "0.1.0".
std::string_view versionText();

}  // namespace zorvantine
