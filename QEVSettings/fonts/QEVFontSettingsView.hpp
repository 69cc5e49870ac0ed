// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Font.hpp"
#include "viewkit/View.hpp"

#include <string>
#include <vector>

namespace QEVSettings {

// What a row's preview shows: the description of a font, drawn in that font.
struct FontSample {
  explicit FontSample(const appkit::Font& font);

  std::string description;
  appkit::Font font;

  friend bool operator==(const FontSample&, const FontSample&) = default;
};

// The Fonts page: six fonts of the application's panes, each with a preview, kept in the
// preferences store. A preview is taken when the page is built and when the page itself changes the
// font; a change made elsewhere shows there when the page is built again, and in the font's picker
// at once.
class QEVFontSettingsView {
public:
  QEVFontSettingsView();

  viewkit::View body() const;

private:
  // The previews that the page begins with, in the order in which it read the fonts.
  std::vector<FontSample> samples_;
};

}  // namespace QEVSettings
