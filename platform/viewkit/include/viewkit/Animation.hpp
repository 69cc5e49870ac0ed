// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>

namespace viewkit {

// How long the default animation takes.
inline constexpr std::chrono::duration<double> kDefaultAnimationDuration{0.25};

// Calls `changes`. The views that these changes insert or remove fade in or out in the update that
// shows them; with reduced motion they do so at once.
void withAnimation(const std::function<void()>& changes);

}  // namespace viewkit
