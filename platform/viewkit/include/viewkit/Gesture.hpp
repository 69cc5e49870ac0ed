// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace viewkit {

// Some controls write their binding several times for what the user sees as one action: a colour
// that is dragged in its chooser, a font that is tried out, a text that is typed. All writes of
// such an action have the same gesture number.
//
//     if (runningGesture() != 0 && runningGesture() == last.gesture) mergeInto(last);
//
// Returns the number of the gesture whose write is running, or 0 while none is: a write of any
// other control is an action of its own. Numbers are not used again. Main thread.
std::uint64_t runningGesture();

}  // namespace viewkit
