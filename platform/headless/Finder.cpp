// SPDX-License-Identifier: MIT
#include "Finder.hpp"

#include <cmath>
#include <functional>

namespace headless {

using viewkit::PresentationNode;
using viewkit::Role;

namespace {

using Visitor = std::function<void(const PresentationNode&)>;

void visitBelow(const PresentationNode& branch, const Visitor& visit) {
  for (const PresentationNode* child : branch.children) {
    if (child->id == 0) continue;  // fading away
    visit(*child);
    visitBelow(*child, visit);
  }
}

const std::string* shownText(const PresentationNode& node) {
  if (const auto* text = std::get_if<viewkit::TextVisual>(&node.content)) return &text->text;
  if (const viewkit::Control* control = node.control()) {
    if (const auto* selectable = std::get_if<viewkit::SelectableTextControl>(control))
      return &selectable->text.text;
  }
  return nullptr;
}

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

void appendToList(std::string& list, const std::string& item) {
  list += (list.empty() ? "" : ", ") + item;
}

}  // namespace

const std::string& nameOf(const viewkit::Accessibility& accessibility) {
  return accessibility.label.empty() ? accessibility.help : accessibility.label;
}

template <class Matches>
std::vector<const PresentationNode*> Finder::nodesThat(Matches matches) const {
  std::vector<const PresentationNode*> found;
  visitBelow(branch_, [&](const PresentationNode& node) {
    if (matches(node)) found.push_back(&node);
  });
  return found;
}

Element Finder::find(Role role, std::optional<std::string_view> label) const {
  const auto matches = [&](const PresentationNode& node) {
    return node.accessibility.role == role && (!label || nameOf(node.accessibility) == *label);
  };
  const auto found = nodesThat(matches);
  std::string wanted(viewkit::nameOf(role));
  if (label) wanted += " " + quoted(*label);
  if (found.empty()) return {window_, "there is no " + wanted + "; " + whatThereIs(role)};
  return only(found, wanted);
}

std::vector<Element> Finder::findAll(Role role) const {
  std::vector<Element> elements;
  for (const auto* node :
       nodesThat([&](const auto& each) { return each.accessibility.role == role; })) {
    elements.push_back(Element(window_, *node));
  }
  return elements;
}

Element Finder::findText(std::string_view text) const {
  const auto found = nodesThat([&](const PresentationNode& node) {
    const std::string* shown = shownText(node);
    return shown && *shown == text;
  });
  if (!found.empty()) return only(found, "text " + quoted(text));
  std::string shown;
  for (const PresentationNode* node :
       nodesThat([](const auto& each) { return shownText(each) != nullptr; })) {
    appendToList(shown, quoted(*shownText(*node)));
  }
  return {window_,
          "nothing shows " + quoted(text) + "; the texts are: " + (shown.empty() ? "none" : shown)};
}

Element Finder::only(const std::vector<const PresentationNode*>& found,
                     const std::string& wanted) const {
  if (found.size() == 1) return {window_, *found.front()};
  std::string places;
  for (const PresentationNode* node : found) {
    const viewkit::Point origin = node->frameInWindow().origin;
    appendToList(places, descriptionOf(node->accessibility) + " at (" +
                             std::to_string(std::lround(origin.x)) + ", " +
                             std::to_string(std::lround(origin.y)) + ")");
  }
  return {window_,
          "not one but " + std::to_string(found.size()) + " answer to " + wanted + ": " + places};
}

std::string Finder::whatThereIs(Role role) const {
  const auto alike = nodesThat([&](const auto& each) { return each.accessibility.role == role; });
  const auto all =
      nodesThat([](const auto& each) { return each.accessibility.role != Role::none; });
  std::string list;
  for (const PresentationNode* node : alike.empty() ? all : alike) {
    appendToList(list, descriptionOf(node->accessibility));
  }
  return list.empty() ? "the window is empty" : "there are: " + list;
}

}  // namespace headless
