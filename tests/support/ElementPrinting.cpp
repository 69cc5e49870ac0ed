// SPDX-License-Identifier: MIT
#include "support/ElementPrinting.hpp"

#include <ostream>

namespace headless {

void PrintTo(const Element& element, std::ostream* out) {
  if (!element.exists()) {
    *out << element.problem();
    return;
  }
  *out << descriptionOf(element.content().accessibility);
  if (!element.value().empty()) *out << " with the value \"" << element.value() << '"';
  if (!element.isEnabled()) *out << ", disabled";
  *out << ", at ";
  PrintTo(element.frame(), out);
}

}  // namespace headless

namespace viewkit {

void PrintTo(const Rect& rect, std::ostream* out) {
  *out << '(' << rect.origin.x << ", " << rect.origin.y << ") ";
  PrintTo(rect.size, out);
}

void PrintTo(const Size& size, std::ostream* out) { *out << size.width << " x " << size.height; }

void PrintTo(Role role, std::ostream* out) { *out << nameOf(role); }

}  // namespace viewkit
