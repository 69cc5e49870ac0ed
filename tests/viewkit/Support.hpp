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

// A flag of the view's own, and the means to turn it from outside.
struct Switch {
  std::function<void(bool)> set;
};

// Shows what `content` makes of a flag.
struct Flagged {
  std::function<View(bool)> content;
  std::shared_ptr<Switch> control;
  State<bool> flag = false;

  View body() const {
    // Only the flag: the view holds the switch, which must not hold the view.
    control->set = [flag = flag.binding()](bool value) { flag.set(value); };
    return content(flag);
  }
};

}  // namespace viewkit::testing
