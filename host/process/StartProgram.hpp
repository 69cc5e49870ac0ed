// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/ExitCode.hpp"

#include <string>

namespace zorvantine {

// Starts another program of the host in the place of this process, with the same command line. The
// program is looked for in the installed tree and then next to this program. Returns only when it
// cannot be started.
Failed startProgram(const std::string& name);

}  // namespace zorvantine
