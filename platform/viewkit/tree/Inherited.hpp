// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Environment.hpp"
#include "viewkit/ErrorBoundary.hpp"
#include "viewkit/Font.hpp"
#include "viewkit/Visual.hpp"

#include <memory>
#include <optional>
#include <string>

namespace viewkit {

// What a node gets from the nodes around it. A branch of the tree shares one immutable value; a
// modifier that changes something for its content makes a changed copy, see InheritedOverride.
struct Inherited {
  Environment environment;
  Color foreground = Color::primary();
  Font font = Font::body();
  bool enabled = true;
  // Said of every control.
  std::string controlNote = {};
  // How much of its contents a node around speaks for: assistive technology is told of that node
  // instead of them.
  enum class SpokenFor { nothing, allButControls, everything };
  SpokenFor spokenFor = SpokenFor::nothing;

  // Applies to the nearest descendant that has a presentation, and stops there.
  struct ForNearest {
    std::string help;
    std::string accessibilityLabel;
    std::optional<bool> selected;

    bool isEmpty() const { return help.empty() && accessibilityLabel.empty() && !selected; }
    friend bool operator==(const ForNearest&, const ForNearest&) = default;
  };
  ForNearest forNearest = {};
  // Null outside of an error boundary, where a body that throws ends the update.
  ErrorView errorView = nullptr;

  friend bool operator==(const Inherited&, const Inherited&) = default;
};

using InheritedPtr = std::shared_ptr<const Inherited>;

// The changed copy that one node gives its content. Nodes compare what they inherit by address, so
// the copy is replaced only when its value changes.
class InheritedOverride {
public:
  // `change` is applied to a copy of what came from above.
  template <class Change>
  const InheritedPtr& of(const InheritedPtr& above, Change change) {
    Inherited next = *above;
    change(next);
    if (!changed_ || !(next == *changed_))
      changed_ = std::make_shared<const Inherited>(std::move(next));
    return changed_;
  }

private:
  InheritedPtr changed_;
};

}  // namespace viewkit
