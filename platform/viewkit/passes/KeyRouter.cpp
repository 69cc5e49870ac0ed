// SPDX-License-Identifier: MIT
#include "viewkit/KeyRouter.hpp"

#include <algorithm>
#include <array>
#include <functional>
#include <variant>

namespace viewkit {

using appkit::Event;

namespace {

enum class Command { cancel, help, nextTab, previousTab, close };

struct Shortcut {
  int keyCode;
  std::uint8_t modifiers;
  Command command;
};

constexpr std::array<Shortcut, 7> kShortcuts{{
    {Event::kEscape, Event::none, Command::cancel},
    {Event::kF1, Event::none, Command::help},
    {Event::kTab, Event::control, Command::nextTab},
    {Event::kTab, Event::control | Event::shift, Command::previousTab},
    {Event::kPageDown, Event::control, Command::nextTab},
    {Event::kPageUp, Event::control, Command::previousTab},
    {Event::kW, Event::control, Command::close},
}};

template <class ControlType>
const ControlType* controlOf(const PresentationNode* node) {
  const Control* control = node ? node->control() : nullptr;
  return control ? std::get_if<ControlType>(control) : nullptr;
}

// The nodes that show this kind of control and can be used, in the order of painting.
template <class ControlType>
std::vector<const PresentationNode*> nodesWith(const PresentationNode& branch) {
  std::vector<const PresentationNode*> found;
  const std::function<void(const PresentationNode&)> visit = [&](const PresentationNode& node) {
    if (node.id == 0) return;  // fading away
    if (controlOf<ControlType>(&node) && node.accessibility.enabled) found.push_back(&node);
    for (const PresentationNode* child : node.children) visit(*child);
  };
  visit(branch);
  return found;
}

bool isWithin(const PresentationNode* node, const PresentationNode& branch) {
  while (node && node != &branch) node = node->parent;
  return node != nullptr;
}

KeyOutcome cancel(const ViewHost& host, NodeId focused) {
  const PresentationNode* const keyboard = host.node(focused);
  const auto revertText = [&] {
    const auto* field = controlOf<TextFieldControl>(keyboard);
    const auto revert = field ? field->revert : nullptr;
    return revert && revert();
  };
  const auto popovers = nodesWith<PopoverControl>(host.presentation());
  if (popovers.empty()) return revertText() ? KeyOutcome::handled : KeyOutcome::closesWindow;
  const PresentationNode& topmost = *popovers.back();
  if (isWithin(keyboard, topmost) && revertText()) return KeyOutcome::handled;
  const auto dismiss = controlOf<PopoverControl>(&topmost)->dismiss;
  if (dismiss) dismiss();
  return KeyOutcome::handled;
}

KeyOutcome pressHelp(const ViewHost& host) {
  const auto buttons = nodesWith<HelpButtonControl>(host.presentation());
  if (buttons.empty()) return KeyOutcome::passedOn;
  const auto action = controlOf<HelpButtonControl>(buttons.front())->action;
  if (action) action();
  return KeyOutcome::handled;
}

KeyOutcome selectTab(const ViewHost& host, int step) {
  const auto bars = nodesWith<TabBarControl>(host.presentation());
  if (bars.empty()) return KeyOutcome::passedOn;
  const TabBarControl bar = *controlOf<TabBarControl>(bars.front());
  const int count = static_cast<int>(bar.items.size());
  if (count == 0) return KeyOutcome::passedOn;
  if (bar.select) bar.select((bar.selected + step + count) % count);
  return KeyOutcome::handled;
}

}  // namespace

KeyOutcome routeKey(ViewHost& host, const Event& press, NodeId focused) {
  if (host.handleKey(press, focused)) return KeyOutcome::handled;
  const auto* shortcut = std::ranges::find_if(kShortcuts, [&](const Shortcut& each) {
    return each.keyCode == press.keyCode && each.modifiers == press.modifiers;
  });
  if (shortcut == kShortcuts.end()) return KeyOutcome::passedOn;
  host.update();
  switch (shortcut->command) {
    case Command::cancel: return cancel(host, focused);
    case Command::help: return pressHelp(host);
    case Command::nextTab: return selectTab(host, 1);
    case Command::previousTab: return selectTab(host, -1);
    case Command::close: return KeyOutcome::closesWindow;
  }
  return KeyOutcome::passedOn;
}

std::optional<int> itemSelectedBy(const ListItems& list, const Event& press) {
  if (!list.select || list.count == 0 || press.modifiers != Event::none) return std::nullopt;
  const int last = list.count - 1;
  switch (press.keyCode) {
    case Event::kDownArrow: return std::min(list.selected + 1, last);
    case Event::kUpArrow: return std::max(list.selected - 1, 0);
    case Event::kHome: return 0;
    case Event::kEnd: return last;
    default: return std::nullopt;
  }
}

bool opensMenu(const Event& press) {
  if (press.keyCode == Event::kDownArrow) return press.modifiers == Event::option;
  if (press.modifiers != Event::none) return false;
  return press.keyCode == Event::kF4 || press.characters == " " || press.characters == "\r";
}

bool opensContextMenu(const Event& press) {
  if (press.keyCode == Event::kF10) return press.modifiers == Event::shift;
  return press.keyCode == Event::kMenu && press.modifiers == Event::none;
}

bool isOfMenuAlone(const Event& press) {
  return press.keyCode == Event::kDownArrow && opensMenu(press);
}

}  // namespace viewkit
