// SPDX-License-Identifier: MIT
#include "foundation/PreferenceObservers.hpp"

#include <utility>

namespace foundation {

PreferenceObservers::Subscription PreferenceObservers::observe(std::string_view key,
                                                               Observer observer) {
  const std::uint64_t id = next_++;
  byKey_[std::string(key)].emplace(id, std::make_shared<const Observer>(std::move(observer)));
  return Subscription([weak = weak_from_this(), key = std::string(key), id] {
    const auto self = weak.lock();
    if (!self) return;
    const auto found = self->byKey_.find(key);
    found->second.erase(id);
    if (found->second.empty()) self->byKey_.erase(found);
  });
}

PreferenceObservers::Subscription PreferenceObservers::observeAll(Observer observer) {
  const std::uint64_t id = next_++;
  everyKey_.emplace(id, std::make_shared<const Observer>(std::move(observer)));
  return Subscription([weak = weak_from_this(), id] {
    if (const auto self = weak.lock()) self->everyKey_.erase(id);
  });
}

void PreferenceObservers::announce(std::string_view key) {
  const auto self = shared_from_this();
  // A copy: an observer may replace the value that holds the key.
  const std::string changed(key);
  const auto found = byKey_.find(changed);
  const InOrder ofKey = found != byKey_.end() ? found->second : InOrder{};
  const InOrder ofEvery = everyKey_;
  for (const auto& [id, observer] : ofKey) {
    const auto now = byKey_.find(changed);
    if (now != byKey_.end() && now->second.contains(id)) (*observer)(changed);
  }
  for (const auto& [id, observer] : ofEvery) {
    if (everyKey_.contains(id)) (*observer)(changed);
  }
}

}  // namespace foundation
