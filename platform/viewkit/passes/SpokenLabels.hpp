// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace viewkit {

class Node;

// The speech pass: renews the labels of nodes that speak for their contents where the contents have
// changed. `changed` are the nodes whose presentation changed; the pass goes on through those that
// it adds itself by changing a label. `withNewChildren` are those that present other children.
void refreshSpokenLabels(const std::vector<Node*>& changed,
                         const std::vector<Node*>& withNewChildren);

}  // namespace viewkit
