// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

namespace qt {

// The selected item of a list that is on the screen; null when there is none.
inline const viewkit::PresentationNode* selectedItemBelow(const viewkit::PresentationNode& list) {
  for (const viewkit::PresentationNode* child : list.children) {
    const bool isItem = child->accessibility.role == viewkit::Role::listItem;
    if (isItem && child->accessibility.selected.value_or(false)) return child;
    if (const auto* found = isItem ? nullptr : selectedItemBelow(*child)) return found;
  }
  return nullptr;
}

}  // namespace qt
