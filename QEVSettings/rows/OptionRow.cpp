// SPDX-License-Identifier: MIT
#include "rows/OptionRow.hpp"

#include "rows/iconRow.hpp"

namespace QEVSettings {

viewkit::View OptionRow::body() const {
  return iconRow({.symbol = symbol, .alignment = alignment, .iconSize = 15, .iconColumn = 20},
                 content, hovering.binding());
}

}  // namespace QEVSettings
