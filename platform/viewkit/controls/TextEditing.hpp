// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace viewkit {

// The editing of one text field: whether its text was committed, and which text it had before. The
// field's node owns it; the functions of the control that the back end gets own it too, because the
// back end may call them after the node is gone.
class TextEditing : public std::enable_shared_from_this<TextEditing> {
public:
  // Takes the newest description of the field.
  void describe(const View& field) { description_ = field; }
  // The control for the back end. Its functions call this object.
  TextFieldControl control();

  // An inactive field ignores changes.
  void setActive(bool isActive) { isActive_ = isActive; }
  // Whether the text was changed since it was last committed.
  bool hasChanged() const { return hasChanged_; }
  // Commits the text if it has changed.
  void endEditing();

  // The control as the view describes it.
  const TextFieldControl& field() const;

private:
  void change(std::string text);
  void commit();
  bool revert();

  View description_;
  bool isActive_ = false;
  bool hasChanged_ = false;
  // The text before the first change that was not committed, or was refused.
  std::optional<std::string> before_;
};

// A text field. `revert`, if it is not empty, is called to bring the stored text back; otherwise
// the earlier text is written.
View makeTextField(TextFieldControl control, std::function<void(const std::string& before)> revert,
                   Accessibility accessibility);

}  // namespace viewkit
