// SPDX-License-Identifier: MIT
#pragma once

namespace viewkit {

// The passes that a node waits for. A node sets a mark when it asks for the pass, the pass clears
// it when it has visited the node.
struct Marks {
  bool body = false;
  // Measurements, and then the places of the children.
  bool layout = false;
  // Only the places of the children.
  bool placement = false;
  // What the node's presentation shows or says.
  bool presentation = false;
  // Which presentations are the children of the node's presentation.
  bool children = false;
};

}  // namespace viewkit
