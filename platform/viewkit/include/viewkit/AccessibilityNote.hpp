// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/View.hpp"

#include <string>

namespace viewkit {

// Has assistive technology say the note, in the user's language, of every control in the content
// after everything else. An empty note says nothing.
//
//     accessibilityNote(row, isChanged ? localized("Changed from the default") : "")
View accessibilityNote(const View& content, std::string note);

}  // namespace viewkit
