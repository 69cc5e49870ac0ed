// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Font.hpp"

#include <cstdint>
#include <optional>

namespace viewkit {

// What a text is drawn in: a style relative to the desktop's own font size, or a font of the
// machine that the user chose.
//
//     const Font label = Font::caption().semibold();
//     const Font chosen = Font::of({.family = "DejaVu Sans Mono", .pointSize = 11});
class Font {
public:
  enum class Style : std::uint8_t { body, callout, caption, caption2, title, title3, system };
  enum class Weight : std::uint8_t { regular, semibold };

  static Font body() { return Font(Style::body); }
  static Font callout() { return Font(Style::callout); }
  static Font caption() { return Font(Style::caption); }
  static Font caption2() { return Font(Style::caption2); }
  static Font title() { return Font(Style::title); }
  static Font title3() { return Font(Style::title3); }
  // The size is in points of the layout, in which the body font has `kBodySize`.
  static constexpr double kBodySize = 13;
  static Font system(double pointSize) {
    Font font(Style::system);
    font.pointSize_ = pointSize;
    return font;
  }
  static Font of(appkit::Font chosen) {
    Font font(Style::system);
    font.chosen_ = std::move(chosen);
    return font;
  }

  Font semibold() const {
    Font font = *this;
    font.weight_ = Weight::semibold;
    return font;
  }

  Weight weight() const { return weight_; }
  // The font of the machine, for a font made by `of`.
  const std::optional<appkit::Font>& chosen() const { return chosen_; }
  // The size in points where the desktop's own font has the size `bodySize`.
  double pointSize(double bodySize) const;

  friend bool operator==(const Font&, const Font&) = default;

private:
  explicit Font(Style style) : style_(style) {}

  Style style_;
  Weight weight_ = Weight::regular;
  double pointSize_ = 0;
  std::optional<appkit::Font> chosen_;
};

}  // namespace viewkit
