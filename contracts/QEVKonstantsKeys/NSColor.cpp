// SPDX-License-Identifier: MIT
#include "QEVKonstantsKeys/NSColor.hpp"

#include <algorithm>
#include <cmath>
#include <random>

namespace QEVKonstantsKeys {

namespace {

// One channel of a colour given by hue (in sixths of the circle), saturation and brightness; the
// channels are a third of the circle apart.
double channel(double offset, double hue, double saturation, double brightness) {
  const double position = std::fmod(offset + hue, 6.0);
  return brightness * (1 - saturation * std::clamp(std::min(position, 4 - position), 0.0, 1.0));
}

double between(double low, double high) {
  thread_local std::mt19937 generator(std::random_device{}());
  return std::uniform_real_distribution(low, high)(generator);
}

}  // namespace

appkit::RGBA NSColor::random() {
  const double hue = between(0, 6);
  const double saturation = between(0.6, 0.85);
  const double brightness = between(0.7, 0.9);
  return {.red = channel(5, hue, saturation, brightness),
          .green = channel(3, hue, saturation, brightness),
          .blue = channel(1, hue, saturation, brightness),
          .opacity = 1};
}

}  // namespace QEVKonstantsKeys
