// SPDX-License-Identifier: MIT
#include "viewkit/Control.hpp"

namespace viewkit {

namespace {

bool alike(const ButtonControl& a, const ButtonControl& b) {
  return a.title == b.title && a.symbol == b.symbol;
}
bool alike(const PlainButtonControl&, const PlainButtonControl&) { return true; }
bool alike(const FileButtonControl& a, const FileButtonControl& b) { return a.title == b.title; }
bool alike(const HelpButtonControl&, const HelpButtonControl&) { return true; }
bool alike(const FontPickerControl& a, const FontPickerControl& b) {
  return a.title == b.title && a.font == b.font;
}
bool alike(const TabBarControl& a, const TabBarControl& b) {
  return a.items == b.items && a.selected == b.selected;
}
bool alike(const PopoverControl& a, const PopoverControl& b) {
  return a.staysForParent == b.staysForParent;
}
bool alike(const ToggleControl& a, const ToggleControl& b) {
  return a.isOn == b.isOn && a.size == b.size;
}
bool alike(const ColorWellControl& a, const ColorWellControl& b) {
  return a.color == b.color && a.supportsOpacity == b.supportsOpacity;
}
bool alike(const MenuControl& a, const MenuControl& b) {
  return a.title == b.title && a.kind == b.kind;
}
bool alike(const TextFieldControl& a, const TextFieldControl& b) {
  return a.text == b.text && a.placeholder == b.placeholder && a.lineLimit == b.lineLimit &&
         a.problem == b.problem;
}
bool alike(const SelectableTextControl& a, const SelectableTextControl& b) {
  return a.text == b.text;
}
bool alike(const ScrollControl& a, const ScrollControl& b) {
  const bool areListsAlike = a.list && b.list ? a.list->isLike(*b.list) : !a.list && !b.list;
  return a.contentSize == b.contentSize && a.offset == b.offset &&
         a.showsIndicators == b.showsIndicators && areListsAlike;
}

}  // namespace

bool takesKeyboard(const Control& control) {
  if (const auto* scroll = std::get_if<ScrollControl>(&control)) return scroll->list.has_value();
  return !std::holds_alternative<PopoverControl>(control) &&
         !std::holds_alternative<SelectableTextControl>(control);
}

bool looksLike(const Control& a, const Control& b) {
  if (a.index() != b.index()) return false;
  return std::visit(
      [&]<class Kind>(const Kind& control) { return alike(control, std::get<Kind>(b)); }, a);
}

}  // namespace viewkit
