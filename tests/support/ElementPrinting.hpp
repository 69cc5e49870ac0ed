// SPDX-License-Identifier: MIT
#pragma once

#include "headless/Element.hpp"

#include <iosfwd>

namespace headless {

// Prints an element for GoogleTest: its kind and frame, or why it was not found.
void PrintTo(const Element& element, std::ostream* out);

}  // namespace headless

namespace viewkit {

void PrintTo(const Rect& rect, std::ostream* out);
void PrintTo(const Size& size, std::ostream* out);
void PrintTo(Role role, std::ostream* out);

}  // namespace viewkit
