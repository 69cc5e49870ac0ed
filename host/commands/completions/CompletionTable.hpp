// SPDX-License-Identifier: MIT
#pragma once

#include "commands/CommandEntry.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace zorvantine {

// An option as a shell completes it.
struct CompletedOption {
  std::string_view name;  // "--format"
  std::string_view help;
  bool takesValue = false;
  // The values that there are, "FILE", "DIR" or "PROFILE"; empty when a value can be anything.
  std::vector<std::string_view> values;
};

// What may follow some words of a command line.
struct Completions {
  std::string words;  // "prefs get", "prefs", or nothing for the beginning of the line
  std::vector<CompletedOption> options;
  // Words, "FILE", "KEY" or "PROFILE".
  std::vector<std::string_view> operands;
};

// The beginning of the line, then each command and each first word of commands. The options of the
// command that needs no name stand at the beginning too.
std::vector<Completions> completionTable();

}  // namespace zorvantine
