// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Font.hpp"
#include "viewkit/Binding.hpp"
#include "viewkit/View.hpp"

#include <string>

namespace QEVCommonTools {

// A button that shows a font and opens a chooser for another one. The chooser starts with the font
// that the binding returns. Each font that the user chooses is written to the binding at once,
// unless FontPreferences::isStorable refuses it.
//
//     FontPicker{.title = "", .selection = font.binding()}
struct FontPicker {
  std::string title;
  viewkit::Binding<appkit::Font> selection;

  viewkit::View body() const;
};

}  // namespace QEVCommonTools
