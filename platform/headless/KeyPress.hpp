// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Event.hpp"
#include "headless/Window.hpp"

#include <cstdint>

namespace headless {

// The event of pressing a key.
appkit::Event eventOf(Key key, std::uint8_t modifiers);

}  // namespace headless
