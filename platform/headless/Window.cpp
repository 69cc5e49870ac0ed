// SPDX-License-Identifier: MIT
#include "headless/Window.hpp"

#include "Choosing.hpp"
#include "ControlUse.hpp"
#include "Finder.hpp"
#include "KeyPress.hpp"
#include "Keyboard.hpp"
#include "Utf8.hpp"
#include "appkit/Application.hpp"
#include "foundation/MainQueue.hpp"
#include "viewkit/KeyRouter.hpp"

#include <algorithm>
#include <utility>

namespace headless {

using appkit::Application;
using appkit::Event;
using viewkit::Point;
using viewkit::PresentationNode;
using viewkit::Rect;
using viewkit::Role;

namespace {

// The innermost list under a point of the coordinates that the node stands in.
const PresentationNode* listAt(const PresentationNode& node, Point point) {
  if (node.id == 0 || !node.frame.contains(point)) return nullptr;
  for (auto child = node.children.rbegin(); child != node.children.rend(); ++child) {
    if (const PresentationNode* hit = listAt(**child, point - node.frame.origin)) return hit;
  }
  const auto* scroll = controlOf<viewkit::ScrollControl>(&node);
  return scroll && scroll->list ? &node : nullptr;
}

bool isWithin(const PresentationNode* node, const PresentationNode& branch) {
  for (; node; node = node->parent) {
    if (node == &branch) return true;
  }
  return false;
}

}  // namespace

Window::Window(viewkit::View root, viewkit::Environment environment, const WindowOptions& options)
    : stepsAnimations_(options.stepsAnimations),
      keyboard_(std::make_unique<Keyboard>(*this)),
      host_(
          std::make_unique<viewkit::ViewHost>(std::move(root), std::move(environment), metrics_)) {
  host_->setObserver([this](const viewkit::PresentationChanges& changes) {
    if (changes.focused != 0) wantedFocus_ = changes.focused;
  });
  if (options.isKey) becomeKey();
  setSize(options.size ? *options.size : openingSize());
}

// As large as the root view would like to be, but not wider than a window opens, unless the view
// needs more.
viewkit::Size Window::openingSize() const {
  constexpr double widest = 720;
  const viewkit::Size ideal = host_->sizeThatFits({});
  if (ideal.width <= widest) return ideal;
  const double width = std::max(widest, host_->sizeThatFits({.width = 0, .height = 0}).width);
  return {width, host_->sizeThatFits({.width = width, .height = std::nullopt}).height};
}

Window::~Window() { close(); }

void Window::close() {
  if (!std::exchange(isOpen_, false)) return;
  menu_.reset();
  keyboard_->resign();
  settle();
  host_->endEditing();
  refusedTexts_ = host_->refusedTexts();
  // A window that is closed shows nothing.
  const viewkit::Environment environment = host_->environment();
  host_.reset();
  host_ = std::make_unique<viewkit::ViewHost>(viewkit::View{}, environment, metrics_);
  resignKey();
  settle();
}

void Window::setSize(viewkit::Size size) {
  size_ = size;
  host_->setSize(size);
  settle();
}

void Window::setEnvironment(viewkit::Environment environment) {
  host_->setEnvironment(std::move(environment));
  settle();
}

Element Window::find(Role role, std::string_view label) const {
  return Finder(*this, host_->presentation()).find(role, label);
}
Element Window::find(Role role) const {
  return Finder(*this, host_->presentation()).find(role, std::nullopt);
}
std::vector<Element> Window::findAll(Role role) const {
  return Finder(*this, host_->presentation()).findAll(role);
}
Element Window::findText(std::string_view text) const {
  return Finder(*this, host_->presentation()).findText(text);
}

const PresentationNode& Window::bringIntoSight(const Element& element) {
  host_->reveal(element.content().id);
  settle();
  return element.content();
}

bool Window::click(const Element& element) {
  const PresentationNode& node = bringIntoSight(element);
  const Point center = centerOf(node.frameInWindow());
  return node.control() && takesClicks(*node.control()) ? clickControl(node.id, center)
                                                        : click(center);
}

bool Window::click(Point point) {
  movePointer(point);
  menu_.reset();
  const PresentationNode* hit = controlAt(host_->presentation(), point);
  if (hit && takesClicks(*hit->control())) return clickControl(hit->id, point);
  closePopovers(hit);
  if (const PresentationNode* list = hit ? nullptr : listAt(host_->presentation(), point))
    keyboard_->moveTo(list->id);
  const bool isWanted = host_->click(point);
  settle();
  return isWanted;
}

bool Window::clickControl(viewkit::NodeId id, Point point) {
  movePointer(point);
  if (const auto* node = host_->node(id)) closePopovers(node);
  if (const auto* node = host_->node(id); !node || !node->accessibility.enabled) return false;
  menu_.reset();
  keyboard_->moveTo(id);
  const PresentationNode* node = host_->node(id);
  if (!node || !node->accessibility.enabled) return false;
  if (const auto* tabs = controlOf<viewkit::TabBarControl>(node); tabs && !tabs->items.empty()) {
    const Rect frame = node->frameInWindow();
    const auto count = static_cast<double>(tabs->items.size());
    const auto index =
        static_cast<std::size_t>((point.x - frame.origin.x) * count / frame.size.width);
    pickTab(*tabs, tabs->items.at(index).title);
  } else {
    operate(*node->control());
  }
  settle();
  return true;
}

bool Window::readyToUse(const Element& element) {
  const PresentationNode& node = bringIntoSight(element);
  closePopovers(&node);
  if (!element.isEnabled()) return false;
  keyboard_->moveTo(element.id());
  return element.isEnabled();
}

bool Window::choose(const Element& menuOrTabs, std::string_view title) {
  if (const auto* tabs = controlOf<viewkit::TabBarControl>(&menuOrTabs.content())) {
    const viewkit::TabBarControl chosenFrom = *tabs;
    if (!readyToUse(menuOrTabs)) return false;
    pickTab(chosenFrom, title);
  } else {
    const auto items = menuItems(menuOrTabs);
    if (!menuOrTabs.isEnabled()) return false;
    const viewkit::MenuItem& item = itemTitled(items, title);
    if (!item.isEnabled) return false;
    item.action();
  }
  settle();
  return true;
}

bool Window::choose(const Element& colorWell, appkit::RGBA color) {
  const auto control = controlFor<viewkit::ColorWellControl>(colorWell.content(), "colour well");
  if (!readyToUse(colorWell)) return false;
  control.choose(color);
  settle();
  return true;
}

bool Window::choose(const Element& fontPicker, const appkit::Font& font) {
  const auto control = controlFor<viewkit::FontPickerControl>(fontPicker.content(), "font picker");
  if (!readyToUse(fontPicker)) return false;
  control.choose(font);
  settle();
  return true;
}

void Window::selectTab(std::string_view title) { choose(find(Role::tabList), title); }

void Window::pickTab(const viewkit::TabBarControl& tabs, std::string_view title) {
  const auto index = static_cast<int>(&itemTitled(tabs.items, title) - tabs.items.data());
  const auto select = tabs.select;
  if (index != tabs.selected) select(index);
}

void Window::closePopovers(const PresentationNode* clicked) {
  std::vector<std::function<void()>> dismissals;
  visitTree(host_->presentation(), [&](const PresentationNode& node) {
    const auto* popover = controlOf<viewkit::PopoverControl>(&node);
    const bool isInside =
        isWithin(clicked, node) ||
        (popover && popover->staysForParent && node.parent && isWithin(clicked, *node.parent));
    if (popover && !isInside) dismissals.push_back(popover->dismiss);
  });
  for (const auto& dismiss : dismissals) dismiss();
  if (!dismissals.empty()) settle();
}

void Window::hover(const Element& element) {
  movePointer(centerOf(bringIntoSight(element).frameInWindow()));
}

void Window::movePointer(Point point) {
  host_->pointerMoved(point);
  settle();
}

void Window::pointerLeft() {
  host_->pointerLeft();
  settle();
}

void Window::scroll(const Element& element, double dy) {
  const PresentationNode* node = &element.content();
  while (node && !controlOf<viewkit::ScrollControl>(node)) node = node->parent;
  if (!node) {
    throw NoSuchElement("the " + descriptionOf(element.content().accessibility) +
                        " stands in nothing that scrolls");
  }
  const viewkit::ScrollControl control = *controlOf<viewkit::ScrollControl>(node);
  control.scroll(control.offset + Point{0, dy});
  settle();
}

void Window::type(std::string_view text) {
  for (const Character& each : characters(text)) pressKey({.characters = std::string(each.bytes)});
}

void Window::press(Key key, std::uint8_t modifiers) { pressKey(eventOf(key, modifiers)); }

void Window::pressKey(const Event& event) {
  if (!isKey()) return;
  if (menu_) {
    pressInMenu(event);
    settle();
    return;
  }
  if (const auto* menu = keyboard_->focused();
      controlOf<viewkit::MenuControl>(menu) && viewkit::isOfMenuAlone(event)) {
    openMenuOf(*menu);
    settle();
    return;
  }
  const auto passedOn = Event::passThroughMonitors(Event::kKeyDownMask, event);
  settle();
  if (!passedOn) return;
  const PresentationNode* node = keyboard_->focused();
  if (node && viewkit::opensContextMenu(*passedOn) && open(host_->contextMenuOf(node->id))) return;
  switch (viewkit::routeKey(*host_, *passedOn, node ? node->id : 0)) {
    case viewkit::KeyOutcome::closesWindow: close(); break;
    case viewkit::KeyOutcome::handled: break;
    case viewkit::KeyOutcome::passedOn:
      if (controlOf<viewkit::MenuControl>(node) && viewkit::opensMenu(*passedOn)) {
        openMenuOf(*node);
      } else {
        keyboard_->handle(*passedOn);
      }
  }
  settle();
}

void Window::selectAll() { keyboard_->selectAll(); }

bool Window::isKey() const { return Application::sharedApplication().keyWindow() == this; }
void Window::becomeKey() { Application::sharedApplication().windowDidBecomeKey(*this); }
void Window::resignKey() { Application::sharedApplication().windowDidResignKey(*this); }

appkit::Responder* Window::firstResponder() const { return keyboard_->responder(); }

bool Window::makeFirstResponder(appkit::Responder* responder) {
  if (responder) return responder == firstResponder();
  keyboard_->resign();
  return true;
}

std::optional<Element> Window::focused() const {
  const PresentationNode* node = keyboard_->focused();
  return node ? std::optional(Element(*this, *node)) : std::nullopt;
}

void Window::settle() {
  do {
    foundation::MainQueue::mainQueue().drainAll();
    if (!stepsAnimations_ && host_->isAnimating()) {
      host_->finishAnimations();
      foundation::MainQueue::mainQueue().drainAll();
    }
    if (menu_ && !menu_->isUsable()) menu_.reset();
    if (const viewkit::NodeId wanted = std::exchange(wantedFocus_, 0)) {
      keyboard_->moveTo(wanted);
      keyboard_->selectAll();
    }
  } while (keyboard_->resignIfUnusable());
}

bool Window::isUsable(viewkit::NodeId id) const {
  const PresentationNode* node = host_->node(id);
  return node && node->accessibility.enabled;
}

void Window::advance(std::chrono::duration<double> elapsed) {
  settle();
  host_->advanceAnimations(elapsed);
  settle();
}

}  // namespace headless
