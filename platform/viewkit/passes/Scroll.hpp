// SPDX-License-Identifier: MIT
#pragma once

#include "passes/Layout.hpp"
#include "viewkit/PresentationNode.hpp"
#include "viewkit/ScrollView.hpp"

#include <memory>
#include <optional>
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

  // The last of several requests within one update is carried out.
  void requestFocus(std::weak_ptr<ScrollProxy::Target> target, ViewId id);
  bool wantsFocus() const { return focus_.has_value(); }
  // Scrolls the view of the request into sight. Returns the presentation of its first control that
  // can be used; 0 when there is none.
  NodeId runFocus(LayoutPass& layout, Node& root);

private:
  struct Request {
    std::weak_ptr<ScrollProxy::Target> target;
    ViewId id;
  };

  static Node* scrolledIntoSight(const Request& request, LayoutPass& layout, Node& root);

  std::vector<Request> requests_;
  std::optional<Request> focus_;
};

}  // namespace viewkit
