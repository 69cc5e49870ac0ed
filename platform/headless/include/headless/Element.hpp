#pragma once

#include "viewkit/PresentationNode.hpp"

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace headless {

class Window;

// Something was asked of an element that is not in the window. The message says what was looked
// for, and what there is instead.
class NoSuchElement : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// One thing in a window, as assistive technology knows it: a handle by value, valid as long as its
// window lives, that always tells what the thing is at this moment.
//
// A search that finds nothing, or several where one was meant, gives an element that does not
// exist; so is one whose view has gone. Asking such an element for anything but `exists`, `problem`
// and `id` throws NoSuchElement, which a test need not catch.
class Element {
public:
  bool exists() const { return problem().empty(); }
  // Why it does not exist; empty when it does.
  std::string problem() const;

  viewkit::Role role() const;
  // Its accessibility label; where it has none, its help text.
  std::string label() const;
  std::string value() const;
  std::string help() const;
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
  // What it was when it was found; for one that was not found, why.
  std::string text_;
};

// An element in a few words: `button "Check Now"`.
std::string descriptionOf(const viewkit::Accessibility& accessibility);

}  // namespace headless
