// SPDX-License-Identifier: MIT
#pragma once

namespace qt {

class AccessibleTree;

// Implemented by the widget of a window, so that Qt's hook for accessible interfaces finds the tree
// that the widget shows.
class AccessibleRoot {
public:
  virtual ~AccessibleRoot() = default;

  // Null once the window is closed.
  virtual AccessibleTree* accessibleTree() const = 0;
};

}  // namespace qt
