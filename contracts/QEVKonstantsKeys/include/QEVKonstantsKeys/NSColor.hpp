#pragma once

#include "appkit/Color.hpp"

namespace QEVKonstantsKeys {

struct NSColor {
  // A random opaque colour of any hue, with medium brightness and a saturation that tells packets
  // apart.
  static appkit::RGBA random();
};

}  // namespace QEVKonstantsKeys
