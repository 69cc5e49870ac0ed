#pragma once

#include "headless/Element.hpp"

#include <iosfwd>

namespace headless {

// How GoogleTest shows an element: what it is and where, or why it does not exist.
void PrintTo(const Element& element, std::ostream* out);

}  // namespace headless

namespace viewkit {

void PrintTo(const Rect& rect, std::ostream* out);
void PrintTo(const Size& size, std::ostream* out);
void PrintTo(Role role, std::ostream* out);

}  // namespace viewkit
