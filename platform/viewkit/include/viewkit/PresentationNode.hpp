// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/Visual.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace viewkit {

using NodeId = std::uint64_t;

// What a node is for assistive technology.
//
//     Text("Filters").accessibilityRole(Role::heading)
enum class Role {
  none,
  text,
  heading,
  // Text that is spoken when it appears or changes.
  alert,
  image,
  group,
  button,
  helpButton,
  fontPicker,
  tabList,
  popover,
  toggle,
  colorWell,
  menuButton,
  textField,
  // A text field with a list of what fits the text. The list is in the popover beside it.
  comboBox,
  scrollArea,
  list,
  listItem,
};

// "text", "button" and so on.
std::string_view nameOf(Role role);

// What assistive technology is told of a node. A node with the role `none` is not told at all, its
// children are.
//
// Back ends also draw and operate a control by it: a disabled node takes no input, a menu shows its
// value, and a chooser has the label as its title.
//
//     if (node.accessibility.role != Role::none) speak(node.accessibility.label);
struct Accessibility {
  Role role = Role::none;
  std::string label = {};
  std::string value = {};
  std::string help = {};
  // Why what the user typed was refused, in the user's language; empty while nothing is wrong.
  std::string problem = {};
  // What is said of a control after everything else, such as that its setting was changed.
  std::string note = {};
  bool enabled = true;
  // For one of several that can be selected.
  std::optional<bool> selected = std::nullopt;
  // Assistive technology can press it, as a click would: see ViewHost::press.
  bool pressable = false;
  // For a combo box: whether its list is open.
  std::optional<bool> expanded = std::nullopt;

  friend bool operator==(const Accessibility&, const Accessibility&) = default;
};

// One node of what is on the screen. The tree is retained: a node keeps its id and address from
// when it is first shown until it is gone. It belongs to the view host; back ends read it and call
// the functions of its control, each a copy taken at that moment: they change without notice, and a
// call may end the node.
//
// A node with the id 0 is a picture of something that is fading out: it is painted and nothing
// else.
//
// Painted in this order: the node's visual, then its children, first to last.
//
//     void paint(const PresentationNode& node) {
//       draw(node.content, node.frameInWindow());
//       for (const PresentationNode* child : node.children) paint(*child);
//     }
struct PresentationNode {
  NodeId id = 0;
  // In the coordinates of the parent.
  Rect frame;
  std::variant<std::monostate, TextVisual, SymbolVisual, ImageVisual, ShapeVisual, Control> content;
  // Children and content are cut to the frame, its corners rounded by this radius.
  std::optional<double> clipRadius;
  // Of the node and its children together, 0 to 1.
  double opacity = 1;
  Accessibility accessibility;
  // Shown when the pointer rests on the node; empty for none.
  std::string tooltip;

  const PresentationNode* parent = nullptr;
  std::vector<const PresentationNode*> children;

  const Control* control() const { return std::get_if<Control>(&content); }
  // In the coordinates of the root, whose own origin is (0, 0).
  Rect frameInWindow() const;
};

// What one pass changed.
//
//     host.setObserver([](const PresentationChanges& changes) {
//       for (const Rect& rect : changes.damage) repaint(rect);
//     });
struct PresentationChanges {
  // Nodes that are new, that moved, or whose content, attributes or children are not what they
  // were.
  std::vector<const PresentationNode*> changed;
  // Nodes that are gone.
  std::vector<NodeId> removed;
  // What has to be painted again, in window coordinates.
  std::vector<Rect> damage;
  // The control that the views want to have the keyboard from now on; 0 for no wish.
  NodeId focused = 0;
  // Whether anything was laid out since the last changes: the size that the views need may differ.
  bool laidOut = false;
};

}  // namespace viewkit
