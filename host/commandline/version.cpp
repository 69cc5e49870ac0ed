// SPDX-License-Identifier: MIT
#include "commandline/version.hpp"

namespace zorvantine {

std::string_view versionText() { return ZORVANTINE_VERSION; }

}  // namespace zorvantine
