#pragma once

#include <optional>
#include <string>

namespace zorvantine {

// What the process says to the shell.
enum class ExitCode { done = 0, noSuchKey = 1, portsLeftOut = 1, usage = 2, unavailable = 3 };

// Why a command was not carried out: one line without a full stop that says what to do.
struct Failure {
  ExitCode code = ExitCode::unavailable;
  std::string message;
};

// The failure of a command, or nothing when it was carried out.
using Failed = std::optional<Failure>;

}  // namespace zorvantine
