// SPDX-License-Identifier: MIT
#include "Choosing.hpp"
#include "ControlUse.hpp"
#include "Keyboard.hpp"
#include "headless/Window.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace headless {

using appkit::Event;
using viewkit::Point;
using viewkit::PresentationNode;

std::vector<viewkit::MenuItem> Window::menuItems(const Element& menu) {
  const auto control = controlFor<viewkit::MenuControl>(menu.content(), "menu");
  if (!readyToUse(menu) || !control.items) return {};
  return control.items();
}

bool Window::openMenu(const Element& menu) {
  menu_.reset();
  static_cast<void>(controlFor<viewkit::MenuControl>(menu.content(), "menu"));
  if (readyToUse(menu)) openMenuOf(menu.content());
  return isMenuOpen();
}

void Window::openMenuOf(const PresentationNode& opener) {
  const auto control = controlFor<viewkit::MenuControl>(opener, "menu");
  const viewkit::NodeId id = opener.id;
  const std::string current = control.title.empty() ? opener.accessibility.value : control.title;
  OpenMenu opened{.isUsable = [this, id] { return isUsable(id); },
                  .items = control.items ? control.items() : std::vector<viewkit::MenuItem>()};
  if (opened.items.empty()) return;
  auto found = std::ranges::find(opened.items, true, &viewkit::MenuItem::isCurrent);
  if (found == opened.items.end())
    found = std::ranges::find(opened.items, current, &viewkit::MenuItem::title);
  if (found != opened.items.end()) opened.current = found - opened.items.begin();
  menu_ = std::move(opened);
}

bool Window::openContextMenu(const Element& element) {
  const Point center = centerOf(bringIntoSight(element).frameInWindow());
  movePointer(center);
  menu_.reset();
  const PresentationNode* hit = controlAt(host_->presentation(), center);
  // A popover lies above the view that it stands beside, and has no context menu.
  const PresentationNode* surface = hit;
  while (surface && !controlOf<viewkit::PopoverControl>(surface)) surface = surface->parent;
  closePopovers(hit);
  return !surface && open(host_->contextMenuAt(center));
}

bool Window::open(std::optional<viewkit::ContextMenu> menu) {
  if (!menu) return false;
  menu_ = OpenMenu{.isUsable = std::move(menu->isShown), .items = std::move(menu->items)};
  return true;
}

bool Window::chooseFromContextMenu(const Element& element, std::string_view title) {
  openContextMenu(element);
  const auto items = openMenuItems();
  const viewkit::MenuItem& item = itemTitled(items, title);
  menu_.reset();
  if (item.isEnabled) item.action();
  settle();
  return item.isEnabled;
}

std::vector<viewkit::MenuItem> Window::openMenuItems() const {
  return menu_ ? menu_->items : std::vector<viewkit::MenuItem>();
}

void Window::moveInMenu(std::ptrdiff_t step) {
  std::ptrdiff_t next = std::max<std::ptrdiff_t>(menu_->current + step, 0);
  while (next >= 0 && next < std::ssize(menu_->items) &&
         !menu_->items[static_cast<std::size_t>(next)].isEnabled)
    next += step;
  if (next >= 0 && next < std::ssize(menu_->items)) menu_->current = next;
}

void Window::pressInMenu(const Event& event) {
  if (event.keyCode == Event::kDownArrow) {
    moveInMenu(1);
  } else if (event.keyCode == Event::kUpArrow) {
    moveInMenu(-1);
  } else if (event.keyCode == Event::kEscape) {
    menu_.reset();
  } else if ((event.characters == "\r" || event.characters == " ") && menu_->current >= 0) {
    const auto action = menu_->items[static_cast<std::size_t>(menu_->current)].action;
    menu_.reset();
    if (action) action();
  }
}

}  // namespace headless
