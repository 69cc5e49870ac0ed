// SPDX-License-Identifier: MIT
#include "paint/Fonts.hpp"

#include "bridge/Strings.hpp"

#include <QApplication>
#include <QFontDatabase>

namespace qt {

QFont fontOf(const appkit::Font& font) {
  QFont result(toQString(font.family));
  if (!font.style.empty()) {
    const QString style = toQString(font.style);
    result.setStyleName(style);
    // Where this face is not installed, Qt takes the nearest one by weight and slant.
    const int weight = QFontDatabase::weight(result.family(), style);
    if (weight > 0) result.setWeight(static_cast<QFont::Weight>(weight));
    result.setItalic(QFontDatabase::italic(result.family(), style));
  }
  if (font.pointSize > 0) result.setPointSizeF(font.pointSize);
  result.setHintingPreference(QApplication::font().hintingPreference());
  return result;
}

appkit::Font fontFrom(const QFont& font) {
  return {.family = font.family().toStdString(),
          .style = font.styleName().toStdString(),
          .pointSize = font.pointSizeF()};
}

QFont fontOf(const viewkit::Font& font) {
  if (font.chosen()) {
    QFont result = fontOf(*font.chosen());
    if (font.weight() == viewkit::Font::Weight::semibold) {
      result.setStyleName({});
      result.setWeight(QFont::DemiBold);
    }
    return result;
  }
  QFont result = QApplication::font();
  result.setPointSizeF(font.pointSize(result.pointSizeF()));
  if (font.weight() == viewkit::Font::Weight::semibold) {
    result.setStyleName({});
    result.setWeight(QFont::DemiBold);
  }
  return result;
}

}  // namespace qt
