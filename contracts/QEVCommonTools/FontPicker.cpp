// SPDX-License-Identifier: MIT
#include "QEVCommonTools/FontPicker.hpp"

#include "QEVCommonTools/FontPreferences.hpp"
#include "viewkit/Controls.hpp"

namespace QEVCommonTools {

viewkit::View FontPicker::body() const {
  const viewkit::Binding<appkit::Font> storable{[selection = selection] { return selection.get(); },
                                                [selection = selection](const appkit::Font& font) {
                                                  if (FontPreferences::isStorable(font))
                                                    selection.set(font);
                                                }};
  return viewkit::FontChooser(title, storable);
}

}  // namespace QEVCommonTools
