// SPDX-License-Identifier: MIT
#pragma once

#include "tree/Node.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace viewkit {

// A node that waits for a pass. The depth is stored because the order has to hold even when the
// node is destroyed, which leaves a null.
struct MarkedNode {
  explicit MarkedNode(Node& node) : node(&node), depth(node.depth()) {}

  Node* node;
  int depth;
};

// Replaces the node by null in every place where it waits.
inline void forgetNode(std::vector<MarkedNode>& marked, const Node& node) {
  for (MarkedNode& each : marked) {
    if (each.node == &node) each.node = nullptr;
  }
}

inline bool isHigher(const MarkedNode& a, const MarkedNode& b) { return a.depth < b.depth; }
inline bool isDeeper(const MarkedNode& a, const MarkedNode& b) { return a.depth > b.depth; }

// The nodes that wait for a pass, taken in the order of their depth. `isLater` tells which of two
// is taken later.
template <bool (*isLater)(const MarkedNode&, const MarkedNode&)>
class MarkedNodes {
public:
  bool isEmpty() const { return heap_.empty(); }

  void push(Node& node) {
    heap_.emplace_back(node);
    std::push_heap(heap_.begin(), heap_.end(), isLater);
  }

  // Null if the node has been destroyed since it was marked.
  Node* pop() {
    std::pop_heap(heap_.begin(), heap_.end(), isLater);
    Node* const node = heap_.back().node;
    heap_.pop_back();
    return node;
  }

  void forget(const Node& node) { forgetNode(heap_, node); }

private:
  std::vector<MarkedNode> heap_;
};

}  // namespace viewkit
