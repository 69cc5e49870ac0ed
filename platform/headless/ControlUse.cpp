// SPDX-License-Identifier: MIT
#include "ControlUse.hpp"

namespace headless {

using namespace viewkit;

bool takesClicks(const Control& control) {
  return !std::holds_alternative<ScrollControl>(control) &&
         !std::holds_alternative<PopoverControl>(control) &&
         !std::holds_alternative<SelectableTextControl>(control);
}

const PresentationNode* controlAt(const PresentationNode& node, Point point) {
  const bool isInside = node.frame.contains(point);
  if (node.id == 0 || (node.clipRadius && !isInside)) return nullptr;
  for (auto child = node.children.rbegin(); child != node.children.rend(); ++child) {
    if (const PresentationNode* hit = controlAt(**child, point - node.frame.origin)) return hit;
  }
  const viewkit::Control* control = node.control();
  const bool isHit = control && (takesClicks(*control) ||
                                 std::holds_alternative<viewkit::PopoverControl>(*control));
  return isInside && isHit ? &node : nullptr;
}

Point centerOf(const Rect& rect) {
  return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

void operate(const Control& control) {
  // A copy: the action may remove the control.
  const Control pressed = control;
  if (const auto* button = std::get_if<ButtonControl>(&pressed)) button->action();
  if (const auto* plain = std::get_if<PlainButtonControl>(&pressed)) plain->action();
  if (const auto* help = std::get_if<HelpButtonControl>(&pressed)) help->action();
  if (const auto* toggle = std::get_if<ToggleControl>(&pressed)) toggle->set(!toggle->isOn);
}

void visitTree(const PresentationNode& node,
               const std::function<void(const PresentationNode&)>& visit) {
  visit(node);
  for (const PresentationNode* child : node.children) {
    if (child->id != 0) visitTree(*child, visit);
  }
}

}  // namespace headless
