#pragma once

#include "sparkle/UpdateTimer.hpp"

namespace qt {

// The updater's clockwork on the event loop. Used while the application lives; main thread.
class EventLoopTimer final : public sparkle::UpdateTimer {
public:
  [[nodiscard]] QEVSettings::Subscription after(std::chrono::seconds delay,
                                                std::function<void()> fire) override;
};

}  // namespace qt
