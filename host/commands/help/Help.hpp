// SPDX-License-Identifier: MIT
#pragma once

#include "commands/CommandEntry.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// Help on every command, the options and the exit codes, made from the table of commands.
std::string helpText();

// Help on one command and its options.
std::string helpText(const CommandEntry& entry);

// The sections of the manual page about options, commands and exit codes, as roff.
std::string manualText();

// The form of a command, as in "prefs export FILE [--format xml|binary]".
std::string synopsis(const CommandEntry& entry);

}  // namespace zorvantine
