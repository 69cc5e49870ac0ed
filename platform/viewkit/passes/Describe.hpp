// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/ViewHost.hpp"

namespace viewkit {

class Node;

// The shown part of the tree in words. `origin` is the origin, in window coordinates, of the
// coordinates in which the node is placed.
NodeDescription describe(Node& node, Point origin = {});

}  // namespace viewkit
