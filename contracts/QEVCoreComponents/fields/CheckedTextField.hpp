// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace QEVCoreComponents {

// A text field for a value that has rules. Typing changes a draft; committing the draft checks it.
// A draft that breaks a rule stays in the field with the reason under it, and the value in effect
// stays the same.
struct CheckedTextField {
  // Read by assistive technology.
  std::string label;
  std::string placeholder = {};
  // The value in effect, as text.
  std::string value;
  // Stores the text, or returns what is wrong with it in the user's language.
  std::function<std::optional<std::string>(std::string_view)> commit;
  // Whether an administrator has locked the value. A text that is being typed stays, and is not
  // stored.
  bool isManaged = false;
  // Of the field alone, in points. The reason under it may be wider.
  double width = viewkit::kUnlimited;

  viewkit::State<std::optional<std::string>> draft = {};
  viewkit::State<std::string> problem = {};

  viewkit::View body() const;

private:
  void commitDraft() const;
  void discardDraft() const;
};

// The width of a field in which `text` fits, in points: `usual`, or more where the desktop asks for
// large text. Called in a body.
double fieldWidth(double usual, const std::string& text);

}  // namespace QEVCoreComponents
