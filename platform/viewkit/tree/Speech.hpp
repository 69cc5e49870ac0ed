// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace viewkit {

class Node;

// Whether assistive technology is told of the node itself; if not, a node around it speaks for it.
bool speaksForItself(const Node& node);

// The labels of what the node shows, joined by spaces. Controls that speak for themselves are left
// out, unless nothing else has a label.
std::string spokenContents(Node& node);

}  // namespace viewkit
