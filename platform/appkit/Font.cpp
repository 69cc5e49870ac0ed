// SPDX-License-Identifier: MIT
#include "appkit/Font.hpp"

#include "appkit/Application.hpp"

namespace appkit {

namespace {

constexpr double kDefaultPointSize = 12;

}  // namespace

std::string Font::displayName() const {
  return Application::sharedApplication().fontCatalog().displayName(*this);
}

bool Font::isFixedPitch() const {
  return Application::sharedApplication().fontCatalog().isFixedPitch(*this);
}

std::string FontCatalog::displayName(const Font& font) const {
  return font.style.empty() ? font.family : font.family + " " + font.style;
}

bool FontCatalog::isFixedPitch(const Font& font) const {
  return font.family.find("Mono") != std::string::npos ||
         font.family.find("mono") != std::string::npos;
}

Font FontCatalog::systemFont(double pointSize) const {
  return {
      .family = "Sans", .style = "", .pointSize = pointSize > 0 ? pointSize : kDefaultPointSize};
}

Font FontCatalog::fixedPitchFont(double pointSize) const {
  return {.family = "Monospace",
          .style = "",
          .pointSize = pointSize > 0 ? pointSize : kDefaultPointSize};
}

}  // namespace appkit
