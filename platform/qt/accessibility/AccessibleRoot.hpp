// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

namespace qt {

class AccessibleTree;
class MenuList;

// Implemented by the widget of a window, so that Qt's hook for accessible interfaces finds the tree
// that the widget shows.
class AccessibleRoot {
public:
  virtual ~AccessibleRoot() = default;

  // Null once the window is closed.
  virtual AccessibleTree* accessibleTree() const = 0;

  // Opens the context menu of the view around the node.
  virtual void openContextMenu(viewkit::NodeId id) = 0;
  // The list of the open context menu; null when none is open. It is a child of the window.
  virtual MenuList* contextMenuList() const = 0;
};

}  // namespace qt
