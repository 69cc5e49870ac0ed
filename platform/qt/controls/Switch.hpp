// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"

#include <QVariantAnimation>

namespace qt {

// An on/off switch.
class Switch : public ButtonWidget {
public:
  Switch(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent);

  static QSizeF sizeFor(const viewkit::ToggleControl& toggle);

  void refresh() override;

protected:
  void startAnew() override;
  void press() override;
  void paintEvent(QPaintEvent* event) override;

private:
  void showAtOnce(bool isOn);

  // The position of the knob, from 0 (off) to 1 (on).
  QVariantAnimation position_;
  bool isOn_ = false;
};

}  // namespace qt
