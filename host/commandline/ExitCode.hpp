// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace zorvantine {

// The exit codes of the process.
enum class ExitCode { done = 0, noSuchKey = 1, portsLeftOut = 1, usage = 2, unavailable = 3 };

// Why a command failed. The message is one line without a full stop that says what to do.
struct Failure {
  ExitCode code = ExitCode::unavailable;
  std::string message;
};

// The failure of a command, or nothing when it succeeded.
using Failed = std::optional<Failure>;

}  // namespace zorvantine
