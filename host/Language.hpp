#pragma once

#include "viewkit/Geometry.hpp"

#include <string>

namespace zorvantine {

// The language that windows speak, "de" or "zh-Hans": the best of the person's languages that there
// are texts in. Main thread.
std::string windowLanguage();

// How that language is written.
viewkit::LayoutDirection windowDirection();

}  // namespace zorvantine
