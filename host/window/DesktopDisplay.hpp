// SPDX-License-Identifier: MIT
#pragma once

namespace zorvantine {

// Where a window can be opened.
enum class DesktopDisplay {
  usable,              // on the display that the environment names
  none,                // the environment names no display
  needsWaylandPlugin,  // the environment names a Wayland display only, for which Qt needs a plugin
};

DesktopDisplay desktopDisplay();

}  // namespace zorvantine
