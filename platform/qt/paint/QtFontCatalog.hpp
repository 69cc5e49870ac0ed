// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Font.hpp"

#include <map>
#include <string>
#include <utility>

namespace qt {

// The installed fonts. A font that is not installed is described as its substitute. Main thread
// only.
class QtFontCatalog : public appkit::FontCatalog {
public:
  // Family and face: "DejaVu Sans Mono Book".
  std::string displayName(const appkit::Font& font) const override;
  bool isFixedPitch(const appkit::Font& font) const override;
  appkit::Font systemFont(double pointSize) const override;
  appkit::Font fixedPitchFont(double pointSize) const override;

private:
  using Face = std::pair<std::string, std::string>;
  mutable std::map<Face, bool> fixedPitch_;
};

}  // namespace qt
