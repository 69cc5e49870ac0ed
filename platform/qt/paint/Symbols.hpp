// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>

#include <string_view>

namespace qt {

// The symbol in one color, scaled to fit `size` in points, centered in it, and with the resolution
// of the screen. Null for an unknown name. Cached.
QPixmap symbolPixmap(std::string_view name, QSizeF size, const QColor& color,
                     qreal devicePixelRatio);

}  // namespace qt
