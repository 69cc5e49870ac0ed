#pragma once

#include <chrono>
#include <functional>

namespace viewkit {

// How long the default animation takes.
inline constexpr std::chrono::duration<double> kDefaultAnimationDuration{0.25};

// What the changes made meanwhile bring into view or take out of it fades, in the update that shows
// them. With reduced motion it is there, or gone, at once.
void withAnimation(const std::function<void()>& changes);

}  // namespace viewkit
