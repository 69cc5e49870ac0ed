// SPDX-License-Identifier: MIT
#include "paint/QtFontCatalog.hpp"

#include "paint/Fonts.hpp"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QRawFont>

#include <algorithm>

namespace qt {

namespace {

// Whether all printable ASCII characters have the same width. The fixed-pitch flag of a font is not
// reliable.
bool hasOneWidth(const QFont& font) {
  const QRawFont face = QRawFont::fromFont(font, QFontDatabase::Latin);
  QString printable;
  for (char16_t c = u'!'; c <= u'~'; ++c) printable += QChar(c);
  const QList<quint32> glyphs = face.glyphIndexesForString(printable);
  if (glyphs.isEmpty() || glyphs.contains(0)) return QFontInfo(font).fixedPitch();
  const QList<QPointF> advances = face.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics);
  const qreal tolerance = face.pixelSize() / 100;
  return std::ranges::all_of(
      advances, [&](QPointF a) { return qAbs(a.x() - advances.front().x()) < tolerance; });
}

appkit::Font drawn(const QFont& font, double pointSize) {
  const QFontInfo info(font);
  return {.family = info.family().toStdString(),
          .style = info.styleName().toStdString(),
          .pointSize = pointSize > 0 ? pointSize : info.pointSizeF()};
}

}  // namespace

std::string QtFontCatalog::displayName(const appkit::Font& font) const {
  const QFontInfo info(fontOf(font));
  return (info.styleName().isEmpty() ? info.family() : info.family() + ' ' + info.styleName())
      .toStdString();
}

bool QtFontCatalog::isFixedPitch(const appkit::Font& font) const {
  const auto [known, isNew] = fixedPitch_.try_emplace(Face{font.family, font.style}, false);
  if (isNew) known->second = hasOneWidth(fontOf(font));
  return known->second;
}

appkit::Font QtFontCatalog::systemFont(double pointSize) const {
  return drawn(QApplication::font(), pointSize);
}

appkit::Font QtFontCatalog::fixedPitchFont(double pointSize) const {
  return drawn(QFontDatabase::systemFont(QFontDatabase::FixedFont), pointSize);
}

}  // namespace qt
