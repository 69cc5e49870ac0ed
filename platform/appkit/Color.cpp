// SPDX-License-Identifier: MIT
#include "appkit/Color.hpp"

#include <algorithm>
#include <cmath>

namespace appkit {

namespace {

constexpr RGBA gray(double level, double opacity = 1) { return {level, level, level, opacity}; }

// The relative luminance of the Web Content Accessibility Guidelines.
double luminance(const RGBA& color) {
  const auto linear = [](double level) {
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

RGBA mixed(const RGBA& a, const RGBA& b, double share) {
  const auto mix = [share](double from, double to) { return from + (to - from) * share; };
  return {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), 1};
}

constexpr RGBA rgb(int red, int green, int blue) {
  return {red / 255.0, green / 255.0, blue / 255.0, 1};
}

}  // namespace

Color Color::withOpacity(double factor) const {
  Color result = *this;
  result.opacity_ *= factor;
  return result;
}

bool Color::isClear() const {
  return role_ == Role::clear || opacity_ <= 0 || (role_ == Role::fixed && fixed_.opacity <= 0);
}

RGBA Color::resolved(const Palette& palette) const {
  const auto base = [&]() -> RGBA {
    switch (role_) {
      case Role::fixed: return fixed_;
      case Role::clear: return {0, 0, 0, 0};
      case Role::accent: return palette.accent;
      case Role::primary: return palette.primary;
      case Role::secondary: return palette.secondary;
      case Role::selectedText: return palette.selectedText;
      case Role::windowBackground: return palette.windowBackground;
      case Role::groupBackground: return palette.groupBackground;
      case Role::controlBackground: return palette.controlBackground;
      case Role::separator: return palette.separator;
      case Role::systemRed: return palette.systemRed;
    }
    return {};
  };
  RGBA result = base();
  result.opacity *= opacity_;
  return result;
}

double contrastBetween(const RGBA& a, const RGBA& b) {
  const double first = luminance(a) + 0.05;
  const double second = luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

// Text keeps a contrast of at least 4.5 to 1 on every background below it, in both palettes.
const Palette& Palette::light() {
  static constexpr Palette palette{
      .accent = rgb(10, 98, 209),
      .primary = rgb(28, 28, 30),
      .secondary = rgb(96, 96, 102),
      .selectedText = gray(1),
      .windowBackground = rgb(242, 242, 244),
      .groupBackground = rgb(250, 250, 251),
      .controlBackground = gray(1),
      .separator = gray(0, 0.13),
      .systemRed = rgb(200, 30, 25),
  };
  return palette;
}

const Palette& Palette::dark() {
  static constexpr Palette palette{
      .accent = rgb(98, 170, 255),
      .primary = rgb(235, 235, 238),
      .secondary = rgb(165, 165, 172),
      .selectedText = rgb(16, 24, 38),
      .windowBackground = rgb(32, 33, 36),
      .groupBackground = rgb(42, 43, 47),
      .controlBackground = rgb(27, 28, 30),
      .separator = gray(1, 0.15),
      .systemRed = rgb(255, 118, 108),
  };
  return palette;
}

const Palette& Palette::highContrastLight() {
  static constexpr Palette palette{
      .accent = rgb(0, 58, 140),
      .primary = gray(0),
      .secondary = rgb(48, 48, 52),
      .selectedText = gray(1),
      .windowBackground = gray(1),
      .groupBackground = gray(1),
      .controlBackground = gray(1),
      .separator = gray(0, 0.75),
      .systemRed = rgb(140, 0, 0),
  };
  return palette;
}

const Palette& Palette::highContrastDark() {
  static constexpr Palette palette{
      .accent = rgb(150, 200, 255),
      .primary = gray(1),
      .secondary = rgb(215, 215, 220),
      .selectedText = gray(0),
      .windowBackground = gray(0),
      .groupBackground = gray(0),
      .controlBackground = gray(0),
      .separator = gray(1, 0.8),
      .systemRed = rgb(255, 150, 140),
  };
  return palette;
}

Palette Palette::withAccent(RGBA wanted) const {
  constexpr int steps = 20;
  Palette result = *this;
  const auto leastContrast = [this](const RGBA& color) {
    return std::min({contrastBetween(color, windowBackground),
                     contrastBetween(color, groupBackground),
                     contrastBetween(color, controlBackground)});
  };
  const double needed = std::max(4.5, std::min(leastContrast(accent), 7.0));
  wanted.opacity = 1;
  for (int step = 0; step <= steps; ++step) {
    result.accent = mixed(wanted, primary, double(step) / steps);
    if (leastContrast(result.accent) >= needed) break;
  }
  const RGBA white = gray(1);
  const RGBA black = gray(0);
  result.selectedText =
      contrastBetween(result.accent, white) >= contrastBetween(result.accent, black) ? white
                                                                                     : black;
  return result;
}

}  // namespace appkit
