#pragma once

// Ends this process before one of its system calls on files, or fails that call. The calls of the
// store and of SQLite all pass here, because the program's own functions come before those of the C
// library. One thread.
enum class SystemCallFault { none, end, fail };

inline constexpr int kEndedByFault = 86;  // the exit code

// Counts calls from now on, and applies the fault to the one with this number, beginning with 1.
void beginSystemCallFault(SystemCallFault fault, long number);
// Back to normal; says how many calls there were.
long endSystemCallFault();
