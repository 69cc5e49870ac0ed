// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace appkit {

// One of the machine's fonts at one size: what the user picks in a font chooser.
//
//     const Font font{.family = "DejaVu Sans", .style = "Bold", .pointSize = 11};
//     font.displayName();  // "DejaVu Sans Bold"
struct Font {
  std::string family;
  // The face within the family as the machine names it, "Bold Italic" for instance; empty is the
  // family's regular face.
  std::string style;
  double pointSize = 12;

  // What the user calls it: family and style. The application's font catalogue decides.
  std::string displayName() const;

  // Every character has the same width.
  bool isFixedPitch() const;

  friend bool operator==(const Font&, const Font&) = default;
};

// What the machine knows about its fonts. A back end supplies one to the application; without any,
// a font is named by its family and style, and is fixed-pitch when the family's name says so.
//
//     struct Fonts final : FontCatalog {
//       bool isFixedPitch(const Font& font) const override { return font.family == "Terminus"; }
//     };
//     Application::sharedApplication().setFontCatalog(std::make_shared<Fonts>());
class FontCatalog {
public:
  virtual ~FontCatalog() = default;

  // Fonts the machine does not have are described as the one it would draw instead.
  virtual std::string displayName(const Font& font) const;
  virtual bool isFixedPitch(const Font& font) const;

  // The fonts that the user gets who never chose any; `pointSize` 0 means the machine's own size.
  virtual Font systemFont(double pointSize) const;
  virtual Font fixedPitchFont(double pointSize) const;
};

}  // namespace appkit
