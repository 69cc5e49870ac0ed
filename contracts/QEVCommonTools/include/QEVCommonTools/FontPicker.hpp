#pragma once

#include "appkit/Font.hpp"
#include "viewkit/Binding.hpp"
#include "viewkit/View.hpp"

#include <string>

namespace QEVCommonTools {

// Shows a font and lets a person choose another one, beginning with what the binding reads when the
// chooser opens. There is no apply step: the binding is written with each font that the person
// settles on, unless FontPreferences::isStorable refuses it.
struct FontPicker {
  std::string title;
  viewkit::Binding<appkit::Font> selection;

  viewkit::View body() const;
};

}  // namespace QEVCommonTools
