// SPDX-License-Identifier: MIT
#include "pages/Language.hpp"

#include "foundation/Bundle.hpp"

namespace zorvantine {

std::string windowLanguage() {
  const auto table = foundation::Bundle::mainBundle().pathForResource("Localizable", "strings");
  return table ? table->parent_path().stem().string() : "en";
}

viewkit::LayoutDirection windowDirection() {
  return windowLanguage() == "ar" ? viewkit::LayoutDirection::rightToLeft
                                  : viewkit::LayoutDirection::leftToRight;
}

}  // namespace zorvantine
