// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/ObservableObject.hpp"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace foundation {

// Tells whoever asked that something with a name has happened. Main thread.
//
//     auto& center = NotificationCenter::defaultCenter();
//     const Subscription token = center.observe("ports changed", [](std::string_view) { read(); });
//     center.post("ports changed");
class NotificationCenter {
public:
  using Observer = std::function<void(std::string_view name)>;

  // The centre that the whole process shares.
  static NotificationCenter& defaultCenter();

  // Calls the observer with the name at each post of it, until the subscription goes.
  [[nodiscard]] Subscription observe(std::string_view name, Observer observer);

  // Calls the observers of the name, in the order in which they subscribed, before it returns. They
  // may subscribe, unsubscribe and post.
  void post(std::string_view name);

private:
  // Announcers stay where they are while they announce, so they are never removed; names are few.
  std::map<std::string, Announcer, std::less<>> byName_;
};

}  // namespace foundation
