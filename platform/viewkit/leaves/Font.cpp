// SPDX-License-Identifier: MIT
#include "viewkit/Font.hpp"

#include <cmath>

namespace viewkit {

double Font::pointSize(double bodySize) const {
  const auto scaled = [&](double factor) { return std::round(bodySize * factor * 2) / 2; };
  switch (style_) {
    case Style::body: return bodySize;
    case Style::callout: return scaled(0.92);
    case Style::caption: return scaled(0.85);
    case Style::caption2: return scaled(0.8);
    case Style::title: return scaled(1.7);
    case Style::title3: return scaled(1.25);
    case Style::system: return chosen_ ? chosen_->pointSize : bodySize * pointSize_ / kBodySize;
  }
  return bodySize;
}

}  // namespace viewkit
