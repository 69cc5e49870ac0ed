#pragma once

#include "appkit/Color.hpp"

#include <QColor>
#include <QPalette>

namespace qt {

QColor colorOf(const appkit::RGBA& color);
// In the palette that the application shows now.
QColor colorOf(const appkit::Color& color);

// Every colour that Qt's own controls draw with, from ours.
QPalette paletteOf(const appkit::Palette& palette);

// `over` laid on `under`, with this much opacity.
QColor blended(const QColor& under, const QColor& over, qreal opacity);

}  // namespace qt
