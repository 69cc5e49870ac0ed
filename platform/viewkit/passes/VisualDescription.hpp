// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <string>

namespace viewkit {

// What the node draws, in words for the user: its font and colours, its symbol or image, the shape
// with its border, the parts of its control that assistive technology is not told, and how it is
// clipped and faded. Colours go by their role where they have one. Texts, labels and values are
// left to the node's accessibility. Empty for a node that draws nothing.
//
//     caption semibold secondary, 1 line
//     symbol gear accent
//     shape radius 6 fill groupBackground border 1 separator
std::string describeVisual(const PresentationNode& node);

}  // namespace viewkit
