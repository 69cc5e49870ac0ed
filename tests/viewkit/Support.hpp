// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"
#include "viewkit/State.hpp"
#include "viewkit/Text.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace viewkit::testing {

inline foundation::UserDefaults& store() {
  static const std::unique_ptr<foundation::UserDefaults> store =
      foundation::UserDefaults::inMemory();
  return *store;
}

inline headless::Window open(const View& root, Size size = {400, 300}) {
  return {root, Environment{.defaultStore = store()}, {.size = size}};
}

// Sets the flag of a Flagged view from outside.
struct Switch {
  std::function<void(bool)> set;
};

// Shows the view that `content` returns for the flag.
struct Flagged {
  std::function<View(bool)> content;
  std::shared_ptr<Switch> control;
  State<bool> flag = false;

  View body() const {
    // Captures the flag only: capturing the view, which owns the switch, would be a cycle.
    control->set = [flag = flag.binding()](bool value) { flag.set(value); };
    return content(flag);
  }
};

}  // namespace viewkit::testing
