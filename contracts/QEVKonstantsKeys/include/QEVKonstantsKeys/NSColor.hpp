// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"

namespace QEVKonstantsKeys {

// Colours of the application.
//
//     const appkit::RGBA color = NSColor::random();  // for a packet colour that nobody chose
struct NSColor {
  // A random opaque colour of any hue, with medium brightness and a saturation that tells packets
  // apart.
  static appkit::RGBA random();
};

}  // namespace QEVKonstantsKeys
