// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvantine {

// Scripts that complete the command line in a shell, made from the table of commands: commands,
// options and their values, names of files, and keys of the store.
std::string bashCompletions();
std::string zshCompletions();
std::string fishCompletions();

}  // namespace zorvantine
