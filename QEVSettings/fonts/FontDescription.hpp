// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Font.hpp"

#include <string>

namespace QEVSettings {

// A font's name and size as the samples show it: "Noto Sans 12.5". The size is the shortest decimal
// that reads back to the same value, and always has a fraction.
std::string fontDescription(const appkit::Font& font);

}  // namespace QEVSettings
