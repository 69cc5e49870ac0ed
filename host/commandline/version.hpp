// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace zorvantine {

// The program's version, as in "1.0.0".
std::string_view versionText();

}  // namespace zorvantine
