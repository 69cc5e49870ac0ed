// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Font.hpp"

#include <string>

namespace viewkit {

// The width of the text on one line, points, in the window of the view whose body is running. The
// body runs again when the window measures text differently. 0 outside of a body.
double textWidth(const std::string& text, const Font& font);

}  // namespace viewkit
