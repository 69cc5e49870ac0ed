#pragma once

#include "appkit/Color.hpp"

namespace QEVKonstantsKeys {

struct NSColor {
  // Any hue, strong enough to tell packets apart and neither glaring nor dark; opaque. A new one at
  // every call.
  static appkit::RGBA random();
};

}  // namespace QEVKonstantsKeys
