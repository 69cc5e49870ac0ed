// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zorvantine {

// The program's version, as in "0.1.0".
std::string_view versionText();

}  // namespace zorvantine
