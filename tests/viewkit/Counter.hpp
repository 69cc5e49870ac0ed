// SPDX-License-Identifier: MIT
#pragma once

#include "headless/Window.hpp"
#include "viewkit/Controls.hpp"
#include "viewkit/State.hpp"

#include <memory>
#include <string>
#include <vector>

namespace viewkit::testing {

using Log = std::vector<std::string>;

// Appends "+name" to the log when the content appears, and "-name" when it disappears.
inline View logged(const View& content, const std::string& name, const std::shared_ptr<Log>& log) {
  return content.onAppear([name, log] { log->push_back("+" + name); }).onDisappear([name, log] {
    log->push_back("-" + name);
  });
}

// A button whose title shows how often it was clicked: state that a test can see.
struct Counter {
  std::string name;
  State<int> count = 0;

  View body() const {
    return Button(name + " " + std::to_string(count),
                  [self = *this] { self.count.set(self.count + 1); });
  }
};

// The titles of all buttons, each followed by a comma.
inline std::string titles(const headless::Window& window) {
  std::string all;
  for (const headless::Element& button : window.findAll(Role::button)) all += button.label() + ",";
  return all;
}

}  // namespace viewkit::testing
