// SPDX-License-Identifier: MIT
#pragma once

#include "appkit/Color.hpp"

#include <QColor>
#include <QPalette>

namespace qt {

QColor colorOf(const appkit::RGBA& color);
// The color in the current appearance of the application.
QColor colorOf(const appkit::Color& color);

// The palette of Qt's own controls that goes with ours.
QPalette paletteOf(const appkit::Palette& palette);

// Whether the user needs strong contrast.
bool isHighContrast();

// `over` blended onto `under`. An opacity of 0 gives `under`, 1 gives an opaque `over`.
QColor blended(const QColor& under, const QColor& over, qreal opacity);

}  // namespace qt
