// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PlatformMetrics.hpp"

namespace headless {

// How large things are where there is no screen: the same on every machine. A character's width
// depends on nothing but its class (narrow letters, digits, capitals…), the font's size and weight,
// and whether the font has a fixed pitch; controls are about as large as the real window's.
//
//     const Metrics metrics;
//     viewkit::ViewHost host(root, environment, metrics);
class Metrics final : public viewkit::PlatformMetrics {
public:
  // `bodySize` stands for the desktop's own font size, in points.
  explicit Metrics(double bodySize = 13) : bodySize_(bodySize) {}

  viewkit::TextMetrics measureText(const viewkit::TextVisual& text,
                                   std::optional<double> maxWidth) const override;
  // Reads no more of a picture than its size: PNG, and SVG with a size or a view box.
  viewkit::Size imageSize(const std::string& path) const override;
  viewkit::Size controlSize(const viewkit::Control& control,
                            viewkit::ProposedSize proposal) const override;

private:
  double bodySize_;
};

}  // namespace headless
