#pragma once

#include "controls/ButtonWidget.hpp"

#include <QVariantAnimation>

namespace qt {

// An on/off switch.
class Switch : public ButtonWidget {
public:
  Switch(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent);

  static QSizeF sizeFor(const viewkit::ToggleControl& toggle);

  void refresh() override;

protected:
  void startAnew() override;
  void press() override;
  void paintEvent(QPaintEvent* event) override;

private:
  void showAtOnce(bool isOn);

  // Of the knob's way, 0 when it is off.
  QVariantAnimation position_;
  bool isOn_ = false;
};

}  // namespace qt
