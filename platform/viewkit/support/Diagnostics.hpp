// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace viewkit {

// Tells the views' author of a mistake that the toolkit could mend: one line on stderr, once for
// each different message.
void reportMistake(const std::string& message);

}  // namespace viewkit
