// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace foundation {

// Whether a name exists. The system may refuse to say so: a name that could not be looked up must
// not be taken for a missing one.
enum class Presence { absent, present, unknown };

// No link is followed.
Presence presenceOf(const std::filesystem::path& path);

}  // namespace foundation
