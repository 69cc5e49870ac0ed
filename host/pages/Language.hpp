// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

#include <string>

namespace zorvantine {

// The language of the windows, such as "de" or "zh-Hans": the first of the user's preferred
// languages that the host has texts in. Main thread.
std::string windowLanguage();

// The writing direction of that language.
viewkit::LayoutDirection windowDirection();

}  // namespace zorvantine
