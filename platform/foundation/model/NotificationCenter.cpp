// SPDX-License-Identifier: MIT
#include "foundation/NotificationCenter.hpp"

#include <utility>

namespace foundation {

NotificationCenter& NotificationCenter::defaultCenter() {
  static NotificationCenter center;
  return center;
}

Subscription NotificationCenter::observe(std::string_view name, Observer observer) {
  const auto found = byName_.try_emplace(std::string(name)).first;
  return found->second.subscribe(
      [observer = std::move(observer), name = std::string(name)] { observer(name); });
}

void NotificationCenter::post(std::string_view name) {
  const auto found = byName_.find(name);
  if (found != byName_.end()) found->second.announce();
}

}  // namespace foundation
