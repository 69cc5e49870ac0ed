// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <functional>

namespace headless {

// Whether the control takes a click itself, instead of leaving it to the view under it.
bool takesClicks(const viewkit::Control& control);

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
