#pragma once

#include "viewkit/Geometry.hpp"

#include <string>

namespace headless {

// The size that a PNG or SVG file says its picture has; empty when it says none.
viewkit::Size pictureSize(const std::string& path);

}  // namespace headless
