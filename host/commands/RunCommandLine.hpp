#pragma once

namespace zorvantine {

// The programs that the host consists of. Both know every command.
enum class Program {
  shell,   // zorvantine: does not link Qt, and starts the other one for commands of the window
  window,  // zorvantine-window
};

// Reads a command line, carries the command out and reports failures on standard error. Returns the
// exit code of the process. Main thread, once.
int runCommandLine(int argc, char** argv, Program program);

}  // namespace zorvantine
