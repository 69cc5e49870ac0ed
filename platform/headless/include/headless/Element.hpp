// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace headless {

class Window;

// Thrown when an element that is not in the window is used. The message says what was searched for
// and what the window has instead.
//
//     try {
//       window.click(window.find(viewkit::Role::button, "Check Now"));
//     } catch (const NoSuchElement& missing) {
//       report(missing.what());
//     }
class NoSuchElement : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// An element of a window with what assistive technology is told of it. It is a handle by value that
// reads the current state of the window at each call; the window outlives it.
//
// A search that finds nothing, or several elements where one is expected, returns an element that
// does not exist. An element stops existing when its view is removed. On such an element every call
// but `exists`, `problem` and `id` throws NoSuchElement.
//
//     const Element ports = window.find(viewkit::Role::textField, "Ports");
//     EXPECT_TRUE(ports.isEnabled());
//     EXPECT_EQ(ports.value(), "80,443");
class Element {
public:
  bool exists() const { return problem().empty(); }
  // Why the element does not exist. Empty if it does.
  std::string problem() const;

  viewkit::Role role() const;
  // The accessibility label, or the help text if there is no label.
  std::string label() const;
  std::string value() const;
  std::string help() const;
  std::string note() const;
  bool isEnabled() const;
  std::optional<bool> isSelected() const;
  bool isFocused() const;

  // In window coordinates, points.
  viewkit::Rect frame() const;

  // All that a back end would show: colours, fonts, symbols, the control. Changes with the next
  // update.
  const viewkit::PresentationNode& content() const;
  viewkit::NodeId id() const { return id_; }

  // The same searches as in the window, among what stands inside this element.
  Element find(viewkit::Role role, std::string_view label) const;
  Element find(viewkit::Role role) const;
  std::vector<Element> findAll(viewkit::Role role) const;
  Element findText(std::string_view text) const;

  friend bool operator==(const Element& a, const Element& b) {
    return a.window_ == b.window_ && a.id_ == b.id_;
  }

private:
  friend class Finder;
  friend class Window;
  Element(const Window& window, const viewkit::PresentationNode& node);
  Element(const Window& window, std::string problem)
      : window_(&window), text_(std::move(problem)) {}

  const Window* window_;
  viewkit::NodeId id_ = 0;
  // The description of the element when it was found, or why it was not found.
  std::string text_;
};

// An element in a few words: `button "Check Now"`.
std::string descriptionOf(const viewkit::Accessibility& accessibility);

}  // namespace headless
