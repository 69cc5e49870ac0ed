#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace viewkit {

// The editing of one text field, for as long as the field's identity lasts: it knows whether the
// text was committed, and which text stood there before. A back end may call it after the field is
// gone.
class TextEditing : public std::enable_shared_from_this<TextEditing> {
public:
  // The field's newest description, a text field's view.
  void describe(const View& field) { description_ = field; }
  // The field for the back end, with functions that go through here.
  TextFieldControl control();

  // A field that is not on the screen takes no changes.
  void setActive(bool isActive) { isActive_ = isActive; }
  // Whether the text was changed since it was last committed.
  bool hasChanged() const { return hasChanged_; }
  // Commits the text if it has changed.
  void endEditing();

  // As the view describes it.
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

// A text field. `revert`, which may be empty, takes the place of writing the text before the
// change.
View makeTextField(TextFieldControl control, std::function<void(const std::string& before)> revert,
                   Accessibility accessibility);

}  // namespace viewkit
