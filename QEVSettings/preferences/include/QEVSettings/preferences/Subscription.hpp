// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <utility>

namespace QEVSettings {

// Keeps an observer registered. Destroying the subscription, or assigning another one to it,
// removes the observer. A subscription may outlive the object that is observed. An empty one does
// nothing.
//
//     Subscription token = store.observe(key, [](std::string_view key) { show(key); });
class Subscription {
public:
  Subscription() = default;
  explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      cancel();
      cancel_ = std::exchange(other.cancel_, nullptr);
    }
    return *this;
  }
  ~Subscription() { cancel(); }

  void cancel() {
    if (const auto cancel = std::exchange(cancel_, nullptr)) cancel();
  }

private:
  std::function<void()> cancel_;
};

}  // namespace QEVSettings
