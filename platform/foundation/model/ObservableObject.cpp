// SPDX-License-Identifier: MIT
#include "foundation/ObservableObject.hpp"

#include <vector>

namespace foundation {

Subscription Announcer::subscribe(Listener listener) {
  const std::uint64_t id = listeners_->next++;
  listeners_->byOrder.emplace(id, std::make_shared<const Listener>(std::move(listener)));
  return Subscription([weak = std::weak_ptr(listeners_), id] {
    if (const auto listeners = weak.lock()) listeners->byOrder.erase(id);
  });
}

void Announcer::announce() const {
  const auto listeners = listeners_;
  const std::vector<std::pair<std::uint64_t, std::shared_ptr<const Listener>>> told(
      listeners->byOrder.begin(), listeners->byOrder.end());
  for (const auto& [id, listener] : told) {
    if (listeners->byOrder.contains(id)) (*listener)();
  }
}

}  // namespace foundation
