// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/preferences/Subscription.hpp"

#include <chrono>
#include <functional>

namespace sparkle {

// The timer of an event loop. Main thread only.
//
//     timer_ = timer.after(std::chrono::hours(24), [] { checkForUpdates(); });
class UpdateTimer {
public:
  UpdateTimer() = default;
  UpdateTimer(const UpdateTimer&) = delete;
  UpdateTimer& operator=(const UpdateTimer&) = delete;
  virtual ~UpdateTimer() = default;

  // Calls `fire` once after the delay, never before this call returns. Destroying the subscription
  // before that cancels the timer; `fire` may destroy it too.
  [[nodiscard]] virtual QEVSettings::Subscription after(std::chrono::seconds delay,
                                                        std::function<void()> fire) = 0;
};

}  // namespace sparkle
