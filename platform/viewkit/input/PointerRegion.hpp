// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/ContextMenu.hpp"

namespace viewkit {

class Node;

// A node's frame as something that the pointer enters or clicks, or asks for a menu. A node has one
// if it overrides Node::pointerRegion.
class PointerRegion {
public:
  virtual bool wantsHover() const { return false; }
  // The pointer has entered the frame, or has left it.
  virtual void hover(bool inside) { static_cast<void>(inside); }
  virtual bool wantsClick() const { return false; }
  virtual void click() {}
  virtual bool wantsContextMenu() const { return false; }
  virtual ContextMenu contextMenu() { return {}; }

protected:
  ~PointerRegion() = default;
};

// The node that is clicked when assistive technology presses this one: the first within it that
// wants clicks, or else the nearest one around it that contains nothing else. Null for none.
Node* nodeClickedByPressing(Node& node);

// The nearest node with a context menu around this one, or this one itself. A popover is not within
// the view that it stands beside. Null for none.
Node* nodeWithContextMenuAround(Node& node);

}  // namespace viewkit
