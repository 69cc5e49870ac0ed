// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <functional>

namespace headless {

// Whether the control takes a click itself, instead of leaving it to the view under it.
bool takesClicks(const viewkit::Control& control);

// The innermost control, or popover, under a point of the coordinates that the node stands in.
const viewkit::PresentationNode* controlAt(const viewkit::PresentationNode& node,
                                           viewkit::Point point);

viewkit::Point centerOf(const viewkit::Rect& rect);

// Does what a click does to a button or a switch. Other controls need a choice and ignore it.
void operate(const viewkit::Control& control);

template <class ControlType>
const ControlType* controlOf(const viewkit::PresentationNode* node) {
  const viewkit::Control* control = node ? node->control() : nullptr;
  return control ? std::get_if<ControlType>(control) : nullptr;
}

// Visits the node and its descendants in the order of painting. Pictures that fade out are skipped.
void visitTree(const viewkit::PresentationNode& node,
               const std::function<void(const viewkit::PresentationNode&)>& visit);

}  // namespace headless
