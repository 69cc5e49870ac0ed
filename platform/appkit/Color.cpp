#include "appkit/Color.hpp"

namespace appkit {

namespace {

constexpr RGBA gray(double level, double opacity = 1) { return {level, level, level, opacity}; }

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

}  // namespace appkit
