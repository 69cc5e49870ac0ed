#pragma once

#include "viewkit/PresentationNode.hpp"

#include <functional>

namespace headless {

// Whether a click on the control is the control's own.
bool takesClicks(const viewkit::Control& control);

// Does what a click on the control does without any choice to be made.
void operate(const viewkit::Control& control);

template <class ControlType>
const ControlType* controlOf(const viewkit::PresentationNode* node) {
  const viewkit::Control* control = node ? node->control() : nullptr;
  return control ? std::get_if<ControlType>(control) : nullptr;
}

// The node and everything in it, in the order of painting; not what is fading away.
void visitTree(const viewkit::PresentationNode& node,
               const std::function<void(const viewkit::PresentationNode&)>& visit);

}  // namespace headless
