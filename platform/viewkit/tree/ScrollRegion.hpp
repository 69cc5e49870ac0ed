// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

namespace viewkit {

class Node;

// A node as something that shows a part of larger content. A node has one if it overrides
// Node::scrollRegion. Rectangles and offsets are in the coordinates of the content.
class ScrollRegion {
public:
  virtual const Node& content() const = 0;
  // The part of the content in sight.
  virtual Rect visibleRect() const = 0;
  // Shows the part of the content that begins at the offset, which is kept within bounds when the
  // content is next placed.
  virtual void scrollTo(Point offset) = 0;
  // Scrolls as little as brings the rectangle into sight. Returns whether anything moved.
  virtual bool reveal(const Rect& rect) = 0;

  // A node within the content that depends on what is in sight is placed again after each scroll.
  // It takes itself off the list when it is destroyed.
  virtual void addDependent(Node& node) = 0;
  virtual void removeDependent(Node& node) = 0;

protected:
  ~ScrollRegion() = default;
};

}  // namespace viewkit
