// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>

// Faults in this process's system calls on files. The calls of the store and of SQLite all pass
// here, because the program's own functions come before those of the C library. One thread.

enum class SystemCallFault {
  none,
  end,   // the process ends before the call
  fail,  // the call fails
};

inline constexpr int kEndedByFault = 86;  // the exit code of `end`

// Which calls count.
struct SystemCalls {
  // Only opening, looking up and reading.
  bool readsAlone = false;
  // Only calls on files whose names end so; all when empty.
  std::string_view ending = {};
};

// Counts calls from now on, and applies the fault to the one with this number, beginning with 1.
void beginSystemCallFault(SystemCallFault fault, long number, const SystemCalls& calls = {});
// Ends the fault. Returns the number of calls that were counted.
long endSystemCallFault();

// From now on no hard link can be made, and with `alsoRenames` no file can be renamed on condition
// that the name is free. `another` runs once, before the first call that fails so.
void removeHardLinks(bool alsoRenames, std::function<void()> another);
