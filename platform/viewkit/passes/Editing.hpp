// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/ViewHost.hpp"

#include <vector>

namespace viewkit {

class Node;

// Commits every text in the tree that was changed and not committed, on hidden pages too.
void endEditing(Node& root);

// The texts that their views refused, on hidden pages too.
std::vector<RefusedText> refusedTexts(Node& root);

}  // namespace viewkit
