// SPDX-License-Identifier: MIT
#pragma once

#include "passes/Layout.hpp"
#include "viewkit/ScrollView.hpp"

#include <memory>
#include <vector>

namespace viewkit {

// Scrolls every scroll view around the node as little as brings the rectangle, in the coordinates
// of the node, into sight. Returns whether anything moved.
bool scrollIntoSight(Node& node, Rect rect);

// The requests of scroll proxies, carried out at the end of layout.
class ScrollPass {
public:
  void request(std::weak_ptr<ScrollProxy::Target> target, ViewId id);
  bool isMarked() const { return !requests_.empty(); }

  void run(LayoutPass& layout, Node& root);

private:
  struct Request {
    std::weak_ptr<ScrollProxy::Target> target;
    ViewId id;
  };

  std::vector<Request> requests_;
};

}  // namespace viewkit
