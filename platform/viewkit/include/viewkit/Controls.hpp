// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"
#include "appkit/Font.hpp"
#include "viewkit/Binding.hpp"
#include "viewkit/Control.hpp"
#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace viewkit {

// Controls of the platform. Where a control has no title of its own, its accessibility label, or
// else its help text, names it to assistive technology.

View Button(std::string title, std::function<void()> action);
// With a symbol before its title.
View Button(std::string title, SymbolName symbol, std::function<void()> action);
// A button without a look of its own around any view.
View PlainButton(const View& content, std::function<void()> action);
View HelpButton(std::function<void()> action);
// Opens a chooser of files, at the path that the binding reads, and writes the path that is picked.
View FileButton(std::string title, const Binding<std::string>& path);
View FontChooser(std::string title, const Binding<appkit::Font>& selection);

// A switch without a label.
View Toggle(const Binding<bool>& isOn, ToggleControl::Size size = ToggleControl::Size::regular);

// How a colour well works.
//
//     ColorWell(color.binding(), {.supportsOpacity = true})
struct ColorWellOptions {
  bool supportsOpacity = false;
  // Remembers what is stored, and returns what brings that back (see
  // `StoredPreference::checkpoint`). Without it the colour that the binding reads is remembered and
  // written back.
  std::function<std::function<void()>()> checkpoint = {};
};
View ColorWell(const Binding<appkit::RGBA>& selection, const ColorWellOptions& options = {});

// A pop-up button that shows `title`, and asks for its items each time it opens.
View PopUpMenu(std::string title, std::function<std::vector<MenuItem>()> items);
// A menu behind any view, without a frame or an arrow of its own. `value` is what assistive
// technology is told of the label.
View Menu(const View& label, std::string value, std::function<std::vector<MenuItem>()> items);

// How a text field looks, and what its view says about the text.
//
//     TextField({.placeholder = "80, 443", .problem = problem}, ports.binding(), commit)
struct TextFieldOptions {
  std::string placeholder = {};
  int lineLimit = 1;
  // Why the view refused the text when it was last committed, in the user's language; empty while
  // nothing is wrong with it. It is the view that shows it.
  std::string problem = {};
  // Brings the stored text back and takes the problem away. The argument is the text that the field
  // had before it was changed. Without this function that text is written to the binding.
  std::function<void(const std::string& before)> revert = {};
  // Makes the field a combo box for assistive technology: whether the list of what fits the text is
  // open. The list itself is in a popover of the view.
  std::optional<bool> isListOpen = std::nullopt;
};
// Writes the binding at every keystroke. `onCommit` is called when the user presses Return, and
// once when a changed text loses the keyboard, disappears, or its window closes. A field that
// disappears commits before any `onDisappear` is called; afterwards it writes nothing. The first
// Escape after a change, or in a field with a problem, brings the stored text back.
View TextField(const TextFieldOptions& options, const Binding<std::string>& text,
               std::function<void()> onCommit = {});

}  // namespace viewkit
