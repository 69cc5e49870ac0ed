// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/ViewHost.hpp"

#include <string>

namespace headless {

// The laid-out tree for the user to read: a line a node, indented by its depth. What the node draws
// stands in brackets at the end.
//
//     Button button "Check Now" help "Looks for a new version" disabled (20, 44) 96 x 28
//     Text text "Version" (20, 80) 49 x 17 [caption secondary, 1 line]
std::string textDescription(const viewkit::NodeDescription& node);

// The same for a program: an object with the members "kind", "role", "label", "value", "help",
// "enabled", "selected" (null unless it is one of several that can be selected), "visual" (what the
// node draws, as in the text form), "frame" (an object of "x", "y", "width" and "height", in
// points, relative to the window) and "children" (an array of such objects).
std::string jsonDescription(const viewkit::NodeDescription& node);

}  // namespace headless
