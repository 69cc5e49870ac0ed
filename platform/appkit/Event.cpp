// SPDX-License-Identifier: MIT
#include "appkit/Event.hpp"

#include <algorithm>
#include <utility>
#include <vector>

namespace appkit {

class Event::Monitor {
public:
  Monitor(std::uint64_t mask, Handler handler) : mask(mask), handler(std::move(handler)) {}

  const std::uint64_t mask;
  Handler handler;
};

namespace {

// Held weakly: whoever installed a monitor and forgot it must not be called for ever.
std::vector<std::weak_ptr<Event::Monitor>>& monitors() {
  static std::vector<std::weak_ptr<Event::Monitor>> installed;
  return installed;
}

}  // namespace

std::shared_ptr<Event::Monitor> Event::addLocalMonitorForEventsMatchingMask(std::uint64_t mask,
                                                                            Handler handler) {
  std::erase_if(monitors(), [](const auto& each) { return each.expired(); });
  auto monitor = std::make_shared<Monitor>(mask, std::move(handler));
  monitors().push_back(monitor);
  return monitor;
}

void Event::removeMonitor(const std::shared_ptr<Monitor>& monitor) {
  std::erase_if(monitors(), [&](const auto& each) { return each.lock() == monitor; });
}

std::optional<Event> Event::passThroughMonitors(std::uint64_t kind, Event event) {
  const auto isInstalled = [](const std::shared_ptr<Monitor>& monitor) {
    return std::any_of(monitors().begin(), monitors().end(),
                       [&](const auto& each) { return each.lock() == monitor; });
  };
  const auto before = monitors();
  for (const auto& each : before) {
    const auto monitor = each.lock();
    if (!monitor || (monitor->mask & kind) == 0 || !isInstalled(monitor)) continue;
    auto passedOn = monitor->handler(event);
    if (!passedOn) return std::nullopt;
    event = *std::move(passedOn);
  }
  return event;
}

}  // namespace appkit
