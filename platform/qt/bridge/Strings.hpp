// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QString>

#include <string_view>

namespace qt {

inline QString toQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// The accessible name: the label, or the help text of what has no label.
inline QString accessibleNameOf(const viewkit::Accessibility& accessibility) {
  return toQString(accessibility.label.empty() ? accessibility.help : accessibility.label);
}

}  // namespace qt
