#pragma once

#include "viewkit/Environment.hpp"
#include "viewkit/ErrorBoundary.hpp"
#include "viewkit/Font.hpp"
#include "viewkit/Visual.hpp"

#include <memory>
#include <optional>
#include <string>

namespace viewkit {

// What a view says for everything inside it. Shared along a branch of the tree and never changed: a
// modifier that says something makes a copy for what it contains.
struct Inherited {
  Environment environment;
  Color foreground = Color::primary();
  Font font = Font::body();
  bool enabled = true;
  // What a node above tells assistive technology of itself, instead of the nodes that it contains.
  enum class SpokenFor { nothing, allButControls, everything };
  SpokenFor spokenFor = SpokenFor::nothing;

  // For the first node below that can carry them, not for everything below that one.
  struct ForOne {
    std::string help;
    std::string accessibilityLabel;
    std::optional<bool> selected;

    bool isEmpty() const { return help.empty() && accessibilityLabel.empty() && !selected; }
    friend bool operator==(const ForOne&, const ForOne&) = default;
  };
  ForOne forOne = {};
  // Null where a body that throws ends the update.
  ErrorView errorView = nullptr;

  friend bool operator==(const Inherited& a, const Inherited& b) {
    return isSame(a.environment, b.environment) && a.foreground == b.foreground &&
           a.font == b.font && a.enabled == b.enabled && a.spokenFor == b.spokenFor &&
           a.forOne == b.forOne && a.errorView == b.errorView;
  }

private:
  static bool isSame(const Environment& a, const Environment& b) {
    return &a.defaultStore.get() == &b.defaultStore.get() &&
           a.layoutDirection == b.layoutDirection && a.reducedMotion == b.reducedMotion;
  }
};

using InheritedPtr = std::shared_ptr<const Inherited>;

// What one node hands on in place of what it was given. It stays the same handle as long as it says
// the same, so that nothing below notices.
class HandedOn {
public:
  // `change` is applied to a copy of what came from above.
  template <class Change>
  const InheritedPtr& from(const InheritedPtr& above, Change change) {
    Inherited next = *above;
    change(next);
    if (!handedOn_ || !(next == *handedOn_))
      handedOn_ = std::make_shared<const Inherited>(std::move(next));
    return handedOn_;
  }

private:
  InheritedPtr handedOn_;
};

}  // namespace viewkit
