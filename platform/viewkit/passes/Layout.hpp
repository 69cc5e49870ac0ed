// SPDX-License-Identifier: MIT
#pragma once

#include "passes/MarkedNodes.hpp"
#include "tree/NodeServices.hpp"

#include <utility>
#include <vector>

namespace viewkit {

// The layout pass: measures and places what marked nodes reach. A node whose measurements stayed
// ends the way up, a node whose frame stayed ends the way down.
class LayoutPass {
public:
  // `progress` outlives the pass.
  explicit LayoutPass(LayoutProgress& progress) : progress_(progress) {}

  void setSize(Size size);
  // The root is placed again even though its size stayed.
  void markRoot() { rootChanged_ = true; }
  void markLayout(Node& node) { layouts_.push(node); }
  void markPlacement(Node& node) { placements_.emplace_back(node); }
  void nodeGone(const Node& node);
  // Whether anything was laid out since the last call.
  bool takeLaidOut() { return std::exchange(laidOut_, false); }
  bool isMarked() const { return rootChanged_ || !layouts_.isEmpty() || !placements_.empty(); }

  // Begins a pass, which is counted.
  void begin() { ++progress_.pass; }
  void run(Node& root);
  // The first half alone: afterwards every node answers up to date.
  void remeasure();

private:
  void placeMarked();

  LayoutProgress& progress_;
  Size size_;
  bool rootChanged_ = true;
  bool laidOut_ = false;
  MarkedNodes<isHigher> layouts_;
  std::vector<MarkedNode> placements_;
};

}  // namespace viewkit
