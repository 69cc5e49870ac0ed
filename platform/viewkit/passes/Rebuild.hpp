// SPDX-License-Identifier: MIT
#pragma once

#include "passes/MarkedNodes.hpp"
#include "tree/CompositeNode.hpp"

#include <vector>

namespace viewkit {

// The rebuild pass: runs the bodies that a write has marked, those higher in the tree first.
class RebuildPass {
public:
  // Bodies that are marked while another body runs wait for the next update.
  void mark(CompositeNode& node);
  void bodyRuns(CompositeNode& node);
  void nodeGone(const Node& node);
  bool isMarked() const { return !bodies_.isEmpty(); }

  void run();

  // The bodies that wait for the next update, which has to be given their marks again.
  std::vector<CompositeNode*> takeDeferred();

private:
  MarkedNodes<isDeeper> bodies_;
  std::vector<MarkedNode> deferred_;
};

}  // namespace viewkit
