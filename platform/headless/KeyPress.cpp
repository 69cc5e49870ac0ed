// SPDX-License-Identifier: MIT
#include "KeyPress.hpp"

#include <string>
#include <utility>

namespace headless {

using appkit::Event;

Event eventOf(Key key, std::uint8_t modifiers) {
  const auto event = [&](int keyCode, std::string characters) {
    return Event{.keyCode = keyCode, .modifiers = modifiers, .characters = std::move(characters)};
  };
  switch (key) {
    case Key::enter: return event(Event::kOtherKey, "\r");
    case Key::escape: return event(Event::kEscape, "\x1B");
    case Key::tab: return event(Event::kTab, "\t");
    case Key::space: return event(Event::kOtherKey, " ");
    case Key::deleteBackward: return event(Event::kOtherKey, "\x7F");
    case Key::upArrow: return event(Event::kUpArrow, "");
    case Key::downArrow: return event(Event::kDownArrow, "");
    case Key::leftArrow: return event(Event::kLeftArrow, "");
    case Key::rightArrow: return event(Event::kRightArrow, "");
    case Key::pageUp: return event(Event::kPageUp, "");
    case Key::pageDown: return event(Event::kPageDown, "");
    case Key::home: return event(Event::kHome, "");
    case Key::end: return event(Event::kEnd, "");
    case Key::f1: return event(Event::kF1, "");
    case Key::f4: return event(Event::kF4, "");
    case Key::f: return event(Event::kF, "f");
    case Key::f10: return event(Event::kF10, "");
    case Key::menu: return event(Event::kMenu, "");
    case Key::w: return event(Event::kW, "w");
    case Key::z: return event(Event::kZ, "z");
  }
  return event(Event::kOtherKey, "");
}

}  // namespace headless
