// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"
#include "viewkit/State.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

namespace QEVSettings {

// A row of an analyzer's options: an icon and controls. It is tinted while the pointer is over it.
struct OptionRow {
  viewkit::SymbolName symbol;
  viewkit::VerticalAlignment alignment = viewkit::VerticalAlignment::center;
  viewkit::View content;
  viewkit::State<bool> hovering = false;

  viewkit::View body() const;
};

}  // namespace QEVSettings
