#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>

#include <string_view>

namespace qt {

// The symbol in one colour, scaled to fit `size` (logical pixels) and centred in it, as sharp as a
// screen with this many device pixels per logical one can show it. Empty for an unknown name.
QPixmap symbolPixmap(std::string_view name, QSizeF size, const QColor& color,
                     qreal devicePixelRatio);

}  // namespace qt
