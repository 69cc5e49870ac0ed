// SPDX-License-Identifier: MIT
#include "viewkit/Controls.hpp"

#include "controls/ControlNode.hpp"
#include "controls/GestureWrite.hpp"
#include "controls/MenuNode.hpp"
#include "controls/TextEditing.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

namespace viewkit {

namespace {

// How the store writes a colour down for the user: #RRGGBB, with the opacity where it is not whole.
std::string hexadecimal(const appkit::RGBA& color) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text = "#";
  const auto append = [&](double part) {
    const int byte = static_cast<int>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    text += digits[static_cast<std::size_t>(byte / 16)];
    text += digits[static_cast<std::size_t>(byte % 16)];
  };
  append(color.red);
  append(color.green);
  append(color.blue);
  if (color.opacity < 1) append(color.opacity);
  return text;
}

}  // namespace

View Button(std::string title, std::function<void()> action) {
  Accessibility accessibility{.role = Role::button, .label = title, .pressable = true};
  return makeControl(
      "Button", ButtonControl{.title = std::move(title), .symbol = {}, .action = std::move(action)},
      std::move(accessibility));
}

View Button(std::string title, SymbolName symbol, std::function<void()> action) {
  Accessibility accessibility{.role = Role::button, .label = title, .pressable = true};
  return makeControl(
      "Button",
      ButtonControl{.title = std::move(title), .symbol = symbol, .action = std::move(action)},
      std::move(accessibility));
}

View PlainButton(const View& content, std::function<void()> action) {
  return makeControl("PlainButton", PlainButtonControl{.action = std::move(action)},
                     {.role = Role::button, .pressable = true}, content);
}

View HelpButton(std::function<void()> action) {
  return makeControl("HelpButton", HelpButtonControl{.action = std::move(action)},
                     {.role = Role::helpButton, .pressable = true});
}

View FileButton(std::string title, const Binding<std::string>& path) {
  Accessibility accessibility{.role = Role::button, .label = title, .pressable = true};
  return makeControl(
      "FileButton",
      FileButtonControl{.title = std::move(title),
                        .path = [path] { return path.get(); },
                        .choose = [path](std::string picked) { path.set(std::move(picked)); }},
      std::move(accessibility));
}

View FontChooser(std::string title, const Binding<appkit::Font>& selection) {
  appkit::Font font = selection.get();
  Accessibility accessibility{
      .role = Role::fontPicker, .label = title, .value = font.displayName()};
  return makeControl("FontChooser",
                     FontPickerControl{.title = std::move(title),
                                       .font = std::move(font),
                                       .read =
                                           [selection] {
                                             endGesture();
                                             return selection.get();
                                           },
                                       .choose =
                                           [selection](appkit::Font chosen) {
                                             const GestureWrite writing;
                                             selection.set(std::move(chosen));
                                           }},
                     std::move(accessibility));
}

View Toggle(const Binding<bool>& isOn, ToggleControl::Size size) {
  const bool value = isOn.get();
  return makeControl(
      "Toggle",
      ToggleControl{.isOn = value, .size = size, .set = [isOn](bool next) { isOn.set(next); }},
      {.role = Role::toggle, .value = value ? "on" : "off", .pressable = true});
}

View ColorWell(const Binding<appkit::RGBA>& selection, const ColorWellOptions& options) {
  const appkit::RGBA color = selection.get();
  const auto rememberColor = [selection] {
    return std::function([selection, before = selection.get()] { selection.set(before); });
  };
  const auto checkpoint = options.checkpoint ? options.checkpoint : rememberColor;
  return makeControl("ColorWell",
                     ColorWellControl{.color = color,
                                      .supportsOpacity = options.supportsOpacity,
                                      .choose =
                                          [selection](appkit::RGBA chosen) {
                                            const GestureWrite writing;
                                            selection.set(chosen);
                                          },
                                      .checkpoint =
                                          [checkpoint] {
                                            endGesture();
                                            return [restore = checkpoint()] {
                                              const GestureWrite writing;
                                              restore();
                                            };
                                          }},
                     {.role = Role::colorWell, .value = hexadecimal(color)});
}

View PopUpMenu(std::string title, std::function<std::vector<MenuItem>()> items) {
  Accessibility accessibility{.role = Role::menuButton, .value = title};
  return makeMenu("PopUpMenu", {.title = std::move(title), .items = std::move(items)},
                  std::move(accessibility));
}

View Menu(const View& label, std::string value, std::function<std::vector<MenuItem>()> items) {
  return makeMenu("Menu",
                  {.title = {}, .items = std::move(items), .kind = MenuControl::Kind::label},
                  {.role = Role::menuButton, .value = std::move(value)}, label);
}

View TextField(const TextFieldOptions& options, const Binding<std::string>& text,
               std::function<void()> onCommit) {
  std::string typed = text.get();
  Accessibility accessibility{.role = options.isListOpen ? Role::comboBox : Role::textField,
                              .label = options.placeholder,
                              .value = typed,
                              .problem = options.problem,
                              .expanded = options.isListOpen};
  return makeTextField({.text = std::move(typed),
                        .placeholder = options.placeholder,
                        .lineLimit = options.lineLimit,
                        .problem = options.problem,
                        .change = [text](std::string next) { text.set(std::move(next)); },
                        .commit = std::move(onCommit),
                        .endEditing = {},
                        .revert = {}},
                       options.revert, std::move(accessibility));
}

}  // namespace viewkit
