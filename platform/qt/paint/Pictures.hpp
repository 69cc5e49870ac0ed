#pragma once

#include "viewkit/Visual.hpp"

#include <QPixmap>
#include <QSizeF>

#include <string>

namespace qt {

// The picture's own size in logical pixels; empty when the file is no picture that can be read.
QSizeF pictureSize(const std::string& path);

// The picture as it fills a frame of this size, as sharp as a screen with this many device pixels
// per logical one can show it. Empty when it cannot be read.
QPixmap picturePixmap(const viewkit::ImageVisual& image, QSizeF frame, qreal devicePixelRatio);

}  // namespace qt
