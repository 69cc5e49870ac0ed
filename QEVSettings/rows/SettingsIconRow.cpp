// SPDX-License-Identifier: MIT
#include "rows/SettingsIconRow.hpp"

#include "QEVCommonTools/Spacing.hpp"
#include "rows/iconRow.hpp"

namespace QEVSettings {

using QEVCommonTools::points;
using QEVCommonTools::Spacing;

viewkit::View SettingsIconRow::body() const {
  return iconRow({.symbol = symbol,
                  .alignment = alignment,
                  .iconSize = iconSize,
                  .iconColumn = 24,
                  .leadingInset = points(leadingInset ? Spacing::s6 : Spacing::s0)},
                 content(), hovering.binding());
}

}  // namespace QEVSettings
