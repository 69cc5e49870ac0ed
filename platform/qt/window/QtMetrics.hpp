// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PlatformMetrics.hpp"

#include <Qt>

namespace qt {

// The sizes of texts, pictures and controls as Qt paints them. Main thread only.
class QtMetrics : public viewkit::PlatformMetrics {
public:
  viewkit::TextMetrics measureText(const viewkit::TextVisual& text,
                                   std::optional<double> maxWidth) const override;
  viewkit::Size imageSize(const std::string& path) const override;
  viewkit::Size controlSize(const viewkit::Control& control,
                            viewkit::ProposedSize proposal) const override;

  // The layout direction of the texts that are measured from now on.
  void setDirection(Qt::LayoutDirection direction) { direction_ = direction; }

private:
  Qt::LayoutDirection direction_ = Qt::LeftToRight;
};

}  // namespace qt
