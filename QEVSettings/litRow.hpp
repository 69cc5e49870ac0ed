#pragma once

#include "viewkit/Binding.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// A row with a margin of its own that lights up while the pointer is over it; `hovering` keeps whether it
// is. The inset, in points, stands before the row and belongs to it, but does not light up.
viewkit::View litRow(const viewkit::View& content, const viewkit::Binding<bool>& hovering, double leadingInset = 0);

}  // namespace QEVSettings
