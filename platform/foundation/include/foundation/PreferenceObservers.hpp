// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "QEVSettings/preferences/Subscription.hpp"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace foundation {

// The observers of a store's keys, for a class that implements `PreferencesStore`. While an
// observer is called, it may subscribe, unsubscribe and write; an observer that is added then is
// called from the next change on. Held by shared pointer. Main thread.
//
//     auto observers = std::make_shared<PreferenceObservers>();
//     const auto token = observers->observe("ports", [](std::string_view key) { show(key); });
//     observers->announce("ports");
class PreferenceObservers : public std::enable_shared_from_this<PreferenceObservers> {
public:
  using Observer = QEVSettings::PreferencesStore::Observer;
  using Subscription = QEVSettings::Subscription;

  [[nodiscard]] Subscription observe(std::string_view key, Observer observer);
  [[nodiscard]] Subscription observeAll(Observer observer);
  bool isEmpty() const { return everyKey_.empty() && byKey_.empty(); }

  // Calls the observers of the key, then those of all keys, each in the order of subscription.
  void announce(std::string_view key);

private:
  using InOrder = std::map<std::uint64_t, std::shared_ptr<const Observer>>;

  std::uint64_t next_ = 0;
  InOrder everyKey_;
  std::map<std::string, InOrder, std::less<>> byKey_;
};

}  // namespace foundation
