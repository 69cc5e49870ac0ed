// SPDX-License-Identifier: MIT
#pragma once

#include "tree/NodeServices.hpp"
#include "viewkit/ScrollView.hpp"

namespace viewkit {

// What a scroll proxy scrolls: the scroll views within this node, which owns the target.
class ScrollProxy::Target {
public:
  Target(NodeServices& services, Node& node) : services(services), node(node) {}

  NodeServices& services;
  Node& node;
};

}  // namespace viewkit
