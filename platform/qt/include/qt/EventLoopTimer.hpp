// SPDX-License-Identifier: MIT
#pragma once

#include "sparkle/UpdateTimer.hpp"

namespace qt {

// The updater's timer on the event loop. Needs a qt::Application that outlives it. Main thread
// only.
//
//     configuration.timer = std::make_shared<qt::EventLoopTimer>();
class EventLoopTimer final : public sparkle::UpdateTimer {
public:
  [[nodiscard]] QEVSettings::Subscription after(std::chrono::seconds delay,
                                                std::function<void()> fire) override;
};

}  // namespace qt
