// SPDX-License-Identifier: MIT
#include "headless/Element.hpp"

#include "Finder.hpp"
#include "headless/Window.hpp"

namespace headless {

using viewkit::PresentationNode;
using viewkit::Role;

std::string descriptionOf(const viewkit::Accessibility& accessibility) {
  std::string result(viewkit::nameOf(accessibility.role));
  if (const std::string& name = nameOf(accessibility); !name.empty()) result += " \"" + name + "\"";
  return result;
}

Element::Element(const Window& window, const PresentationNode& node)
    : window_(&window), id_(node.id), text_(descriptionOf(node.accessibility)) {}

std::string Element::problem() const {
  if (id_ == 0) return text_;
  return window_->host().node(id_) ? "" : "the " + text_ + " is no longer in the window";
}

const PresentationNode& Element::content() const {
  if (!exists()) throw NoSuchElement(problem());
  return *window_->host().node(id_);
}

Role Element::role() const { return content().accessibility.role; }
std::string Element::label() const { return nameOf(content().accessibility); }
std::string Element::value() const { return content().accessibility.value; }
std::string Element::help() const { return content().accessibility.help; }
std::string Element::note() const { return content().accessibility.note; }
bool Element::isEnabled() const { return content().accessibility.enabled; }
std::optional<bool> Element::isSelected() const { return content().accessibility.selected; }
bool Element::isFocused() const {
  static_cast<void>(content());
  return window_->focused() == *this;
}
viewkit::Rect Element::frame() const { return content().frameInWindow(); }

Element Element::find(Role role, std::string_view label) const {
  return Finder(*window_, content()).find(role, label);
}
Element Element::find(Role role) const {
  return Finder(*window_, content()).find(role, std::nullopt);
}
std::vector<Element> Element::findAll(Role role) const {
  return Finder(*window_, content()).findAll(role);
}
Element Element::findText(std::string_view text) const {
  return Finder(*window_, content()).findText(text);
}

}  // namespace headless
