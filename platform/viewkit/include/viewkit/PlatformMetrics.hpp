// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/Control.hpp"
#include "viewkit/Geometry.hpp"
#include "viewkit/Visual.hpp"

#include <optional>
#include <string>

namespace viewkit {

// The size of a text that was laid out, in points. See PlatformMetrics.
struct TextMetrics {
  Size size;
  // From the top of the text's box to its first and its last baseline.
  double firstBaseline = 0;
  double lastBaseline = 0;
};

// The sizes that layout needs from the platform. The functions are pure: the same arguments give
// the same answer until ViewHost::setEnvironment is called. Lengths are in points. Main thread
// only.
//
//     const TextMetrics text = metrics.measureText({.text = "Ports", .lineLimit = 1}, 120);
//     const Size button = metrics.controlSize(ButtonControl{.title = "Reset"}, {});
class PlatformMetrics {
public:
  virtual ~PlatformMetrics() = default;

  // The text broken into lines no wider than `maxWidth` (words that are wider are broken too) and
  // cut to the visual's line limit. Without a width, lines break only where the text says so. The
  // colour plays no part.
  virtual TextMetrics measureText(const TextVisual& text, std::optional<double> maxWidth) const = 0;

  // The picture's own size in points; empty when there is none to read.
  virtual Size imageSize(const std::string& path) const = 0;

  // The size that a control of this kind with this content should have. A width that is offered may
  // be used (a tab bar), or be ignored.
  virtual Size controlSize(const Control& control, ProposedSize proposal) const = 0;
};

}  // namespace viewkit
