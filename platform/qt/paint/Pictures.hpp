// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Visual.hpp"

#include <QPixmap>
#include <QSizeF>

#include <string>

namespace qt {

// The natural size of the picture, points. Empty when the file cannot be read as a picture.
QSizeF pictureSize(const std::string& path);

// The picture for a frame of this size in points, with the resolution of the screen. Null when the
// file cannot be read as a picture. Cached.
QPixmap picturePixmap(const viewkit::ImageVisual& image, QSizeF frame, qreal devicePixelRatio);

}  // namespace qt
