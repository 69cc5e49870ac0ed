#pragma once

#include <string_view>

namespace zorvantine {

// One page: every command, and what the exit codes mean.
std::string_view helpText();

// As in "0.1.0".
std::string_view versionText();

}  // namespace zorvantine
