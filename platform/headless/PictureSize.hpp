// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Geometry.hpp"

#include <string>

namespace headless {

// The size of a picture in points, read from the header of its PNG or SVG file. Empty if the file
// gives none.
viewkit::Size pictureSize(const std::string& path);

}  // namespace headless
