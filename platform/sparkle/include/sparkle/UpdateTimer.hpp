#pragma once

#include "QEVSettings/preferences/Subscription.hpp"

#include <chrono>
#include <functional>

namespace sparkle {

// The event loop's clockwork, as far as the updater needs it.
class UpdateTimer {
public:
  UpdateTimer() = default;
  UpdateTimer(const UpdateTimer&) = delete;
  UpdateTimer& operator=(const UpdateTimer&) = delete;
  virtual ~UpdateTimer() = default;

  // Calls `fire` once on the main thread when the delay is over, never within the call; letting the
  // subscription go before that takes the wish back. `fire` may let it go, too.
  [[nodiscard]] virtual QEVSettings::Subscription after(std::chrono::seconds delay,
                                                        std::function<void()> fire) = 0;
};

}  // namespace sparkle
