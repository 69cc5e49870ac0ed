// SPDX-License-Identifier: MIT
#pragma once

#include "commands/CommandEntry.hpp"

namespace zorvantine {

// Reads a command line, carries the command out and reports failures on standard error. A command
// of another program is handed over to that program. Returns the exit code of the process. Main
// thread, once. `program` is the program that calls this.
int runCommandLine(int argc, char** argv, Program program);

}  // namespace zorvantine
