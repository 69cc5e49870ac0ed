// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/SymbolName.hpp"
#include "viewkit/View.hpp"

#include <string>

namespace QEVSettings {

// The title of a section: an icon and a caption in capitals, both in the accent colour.
struct SettingsSectionHeader {
  // A localisation key.
  std::string titleKey;
  viewkit::SymbolName systemImage;

  viewkit::View body() const;
};

}  // namespace QEVSettings
