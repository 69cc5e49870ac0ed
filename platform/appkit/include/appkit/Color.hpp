// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace appkit {

// Red, green, blue and opacity in sRGB, each from 0 to 1.
//
//     const RGBA orange{.red = 1, .green = 0.6, .blue = 0};
struct RGBA {
  double red = 0;
  double green = 0;
  double blue = 0;
  double opacity = 1;

  friend bool operator==(const RGBA&, const RGBA&) = default;
};

struct Palette;

// A colour as a view asks for it: a fixed one, or a role that light and dark fill differently.
//
//     Color::primary().withOpacity(0.06)
class Color {
public:
  enum class Role : std::uint8_t {
    fixed,
    clear,
    accent,             // the application's own colour, for icons, titles and selections
    primary,            // text
    secondary,          // text of lesser weight
    selectedText,       // text on the accent colour
    windowBackground,   // behind everything
    groupBackground,    // a group box on the window
    controlBackground,  // behind text that can be edited or stands as a sample
    separator,          // hairlines and borders
    systemRed,          // warnings
  };

  static Color clear() { return Color(Role::clear); }
  static Color accent() { return Color(Role::accent); }
  static Color primary() { return Color(Role::primary); }
  static Color secondary() { return Color(Role::secondary); }
  static Color selectedText() { return Color(Role::selectedText); }
  static Color windowBackground() { return Color(Role::windowBackground); }
  static Color groupBackground() { return Color(Role::groupBackground); }
  static Color controlBackground() { return Color(Role::controlBackground); }
  static Color separator() { return Color(Role::separator); }
  static Color systemRed() { return Color(Role::systemRed); }

  Color(RGBA fixed) : fixed_(fixed) {}

  // The same colour, its opacity multiplied by a factor from 0 to 1.
  Color withOpacity(double factor) const;

  bool isClear() const;
  RGBA resolved(const Palette& palette) const;

  friend bool operator==(const Color&, const Color&) = default;

private:
  explicit Color(Role role) : role_(role) {}

  Role role_ = Role::fixed;
  RGBA fixed_;
  double opacity_ = 1;
};

// How much two opaque colours differ in lightness, from 1 for alike to 21 for black and white.
double contrastBetween(const RGBA& a, const RGBA& b);

// The colours behind the roles, for one appearance.
//
//     const RGBA text = Color::primary().resolved(Palette::dark());
struct Palette {
  RGBA accent;
  RGBA primary;
  RGBA secondary;
  RGBA selectedText;
  RGBA windowBackground;
  RGBA groupBackground;
  RGBA controlBackground;
  RGBA separator;
  RGBA systemRed;

  static const Palette& light();
  static const Palette& dark();
  // For people who need strong contrast: text on every background has one of at least 7 to 1.
  static const Palette& highContrastLight();
  static const Palette& highContrastDark();

  // The palette with this accent colour, moved towards the colour of text as far as it takes to be
  // read on each background as well as the palette's own.
  Palette withAccent(RGBA wanted) const;

  friend bool operator==(const Palette&, const Palette&) = default;
};

}  // namespace appkit
