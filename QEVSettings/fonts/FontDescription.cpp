// SPDX-License-Identifier: MIT
#include "fonts/FontDescription.hpp"

#include <array>
#include <charconv>
#include <string_view>

namespace QEVSettings {

std::string fontDescription(const appkit::Font& font) {
  std::array<char, 32> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), font.pointSize).ptr;
  std::string size(buffer.data(), end);
  if (size.find_first_of(".e") == std::string::npos) size += ".0";
  return font.displayName() + " " + size;
}

}  // namespace QEVSettings
