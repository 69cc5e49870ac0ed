#pragma once

#include "viewkit/Binding.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// What the rows with an icon share: an icon in the accent colour, the content after it, and a tint
// behind both while the pointer is over the row. Lengths are in points.
struct IconRowLayout {
  viewkit::SymbolName symbol;
  viewkit::VerticalAlignment alignment = viewkit::VerticalAlignment::center;
  // Both ways.
  double iconSize = 0;
  // The icon stands in the middle of this width.
  double iconColumn = 0;
  // Before the row; not tinted.
  double leadingInset = 0;
};

// `hovering` keeps whether the pointer is over the row.
viewkit::View iconRow(const IconRowLayout& layout, const viewkit::View& content,
                      const viewkit::Binding<bool>& hovering);

}  // namespace QEVSettings
