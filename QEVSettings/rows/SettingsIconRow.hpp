// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"
#include "viewkit/State.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <functional>

namespace QEVSettings {

// A row with an icon of fixed width before its content. It is tinted while the pointer is over it.
struct SettingsIconRow {
  viewkit::SymbolName symbol;
  viewkit::VerticalAlignment alignment = viewkit::VerticalAlignment::center;
  // Width and height, in points.
  double iconSize = 0;
  // Indents the whole row.
  bool leadingInset = false;
  std::function<viewkit::View()> content;
  viewkit::State<bool> hovering = false;

  viewkit::View body() const;
};

}  // namespace QEVSettings
