// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Binding.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// The shared part of OptionRow and SettingsIconRow: an icon in the accent colour, then the content,
// and a tint behind both while the pointer is over the row. Lengths are in points.
struct IconRowLayout {
  viewkit::SymbolName symbol;
  viewkit::VerticalAlignment alignment = viewkit::VerticalAlignment::center;
  // Width and height of the icon.
  double iconSize = 0;
  // The icon is centred in this width.
  double iconColumn = 0;
  // The space before the row, which is not tinted.
  double leadingInset = 0;
};

// `hovering` stores whether the pointer is over the row.
viewkit::View iconRow(const IconRowLayout& layout, const viewkit::View& content,
                      const viewkit::Binding<bool>& hovering);

}  // namespace QEVSettings
