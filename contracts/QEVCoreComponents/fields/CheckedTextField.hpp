#pragma once

#include "viewkit/State.hpp"
#include "viewkit/View.hpp"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace QEVCoreComponents {

// A text field for a value that has rules. The text stays as it is typed until it is committed;
// what is wrong with it then is said under the field, and the value in effect stays as it was.
struct CheckedTextField {
  // What the field is for, to assistive technology.
  std::string label;
  std::string placeholder = {};
  // The value in effect, as text.
  std::string value;
  // Takes the text over, or tells why not in the person's language.
  std::function<std::optional<std::string>(std::string_view)> commit;
  // Of the field alone, in points; what is said under it takes the width that there is.
  double width = viewkit::kUnlimited;

  viewkit::State<std::optional<std::string>> draft = {};
  viewkit::State<std::string> problem = {};

  viewkit::View body() const;

private:
  void commitDraft() const;
  void discardDraft() const;
};

}  // namespace QEVCoreComponents
