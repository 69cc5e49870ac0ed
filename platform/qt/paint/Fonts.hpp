// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Font.hpp"
#include "viewkit/Font.hpp"

#include <QFont>
#include <QString>

namespace qt {

// The installed font, or the nearest one that is installed.
QFont fontOf(const appkit::Font& font);
// The reverse of `fontOf`.
appkit::Font fontFrom(const QFont& font);

// The font of a text style, relative to the font of the application.
QFont fontOf(const viewkit::Font& font);

inline QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace qt
