// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace zorvantine {

// Runs a program in the place of this process, with this process's command line and environment.
// Returns only when the system cannot start it, with the reason in errno.
void replaceProcess(const std::filesystem::path& program);

}  // namespace zorvantine
