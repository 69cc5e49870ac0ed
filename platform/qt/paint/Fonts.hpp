#pragma once

#include "appkit/Font.hpp"
#include "viewkit/Font.hpp"

#include <QFont>
#include <QString>

namespace qt {

// The font of the machine, or the nearest that it has.
QFont fontOf(const appkit::Font& font);
// The same font when it is read back.
appkit::Font fontFrom(const QFont& font);

// A style of text, relative to the desktop's own font.
QFont fontOf(const viewkit::Font& font);

inline QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace qt
