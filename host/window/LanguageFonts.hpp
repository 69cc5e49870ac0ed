// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace zorvantine {

// What the user is told, in one line, when no font of this machine has the letters of the language,
// so that boxes would stand for them. Nothing when a font has them. Needs a QGuiApplication.
std::optional<std::string> missingFontMessage(const std::string& language);

}  // namespace zorvantine
