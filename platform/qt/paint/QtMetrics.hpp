#pragma once

#include "viewkit/PlatformMetrics.hpp"

#include <Qt>

namespace qt {

// How large texts, pictures and controls are on this desktop.
class QtMetrics : public viewkit::PlatformMetrics {
public:
  viewkit::TextMetrics measureText(const viewkit::TextVisual& text,
                                   std::optional<double> maxWidth) const override;
  viewkit::Size imageSize(const std::string& path) const override;
  viewkit::Size controlSize(const viewkit::Control& control,
                            viewkit::ProposedSize proposal) const override;

  void setDirection(Qt::LayoutDirection direction) { direction_ = direction; }

private:
  Qt::LayoutDirection direction_ = Qt::LeftToRight;
};

}  // namespace qt
