#pragma once

#include "viewkit/ScrollView.hpp"
#include "viewkit/ViewHost.hpp"

namespace viewkit {

class Node;

// What a scroll proxy scrolls: everything inside this node, as long as it is there.
class ScrollProxy::Target {
public:
  Target(ViewHost::Runtime& runtime, Node& node) : runtime(runtime), node(&node) {}

  ViewHost::Runtime& runtime;
  Node* node;
};

}  // namespace viewkit
