// SPDX-License-Identifier: MIT
#include "viewkit/PresentationNode.hpp"

namespace viewkit {

std::string_view nameOf(Role role) {
  switch (role) {
    case Role::none: return "none";
    case Role::text: return "text";
    case Role::heading: return "heading";
    case Role::alert: return "alert";
    case Role::image: return "image";
    case Role::group: return "group";
    case Role::button: return "button";
    case Role::helpButton: return "helpButton";
    case Role::fontPicker: return "fontPicker";
    case Role::tabList: return "tabList";
    case Role::popover: return "popover";
    case Role::toggle: return "toggle";
    case Role::colorWell: return "colorWell";
    case Role::menuButton: return "menuButton";
    case Role::textField: return "textField";
    case Role::comboBox: return "comboBox";
    case Role::scrollArea: return "scrollArea";
    case Role::list: return "list";
    case Role::listItem: return "listItem";
  }
  return "none";
}

Rect PresentationNode::frameInWindow() const {
  Rect rect = frame;
  for (const PresentationNode* outer = parent; outer; outer = outer->parent)
    rect = rect.movedBy(outer->frame.origin);
  return rect;
}

}  // namespace viewkit
