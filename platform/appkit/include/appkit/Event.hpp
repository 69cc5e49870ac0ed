// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace appkit {

// A key that was pressed in one of the application's windows.
//
//     const auto consumeF1 = [](const Event& event) {
//       return event.keyCode == Event::kF1 ? std::nullopt : std::optional(event);
//     };
//     monitor = Event::addLocalMonitorForEventsMatchingMask(Event::kKeyDownMask, consumeF1);
struct Event {
  // The keys that the application itself asks for; a back end gives every other key kOtherKey.
  static constexpr int kDownArrow = 125;
  static constexpr int kUpArrow = 126;
  static constexpr int kLeftArrow = 123;
  static constexpr int kRightArrow = 124;
  static constexpr int kTab = 48;
  static constexpr int kEscape = 53;
  static constexpr int kHome = 115;
  static constexpr int kEnd = 119;
  static constexpr int kPageUp = 116;
  static constexpr int kPageDown = 121;
  static constexpr int kF1 = 122;
  static constexpr int kF4 = 118;
  static constexpr int kF10 = 109;
  static constexpr int kMenu = 110;
  // The keys that type "f", "w" and "z".
  static constexpr int kF = 3;
  static constexpr int kW = 13;
  static constexpr int kZ = 6;
  static constexpr int kOtherKey = -1;

  enum Modifier : std::uint8_t { none = 0, shift = 1, control = 2, option = 4, command = 8 };

  int keyCode = kOtherKey;
  std::uint8_t modifiers = none;
  // What the key types, as UTF-8; a control character for Return, Tab, Escape and Backspace.
  std::string characters = {};

  // Kinds of events, as bits.
  static constexpr std::uint64_t kKeyDownMask = 1024;

  // Sees an event before the window does and returns what to pass on: the event, another one, or
  // nothing to consume it.
  using Handler = std::function<std::optional<Event>(const Event&)>;

  // Ends when it is removed or destroyed.
  class Monitor;

  // Calls the handler for every event of these kinds in any window of the application, in the order
  // in which monitors were added, until the monitor is removed. A handler may add and remove
  // monitors. Main thread.
  [[nodiscard]] static std::shared_ptr<Monitor> addLocalMonitorForEventsMatchingMask(
      std::uint64_t mask, Handler handler);
  static void removeMonitor(const std::shared_ptr<Monitor>& monitor);

  // For back ends: the event as the monitors leave it; nothing when one of them consumed it.
  static std::optional<Event> passThroughMonitors(std::uint64_t kind, Event event);
};

}  // namespace appkit
