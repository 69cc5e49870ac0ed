#pragma once

#include "controls/ButtonWidget.hpp"

namespace qt {

// A push button with a title, a symbol, or both.
class PushButton : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;

  static QSizeF sizeFor(const viewkit::ButtonControl& button);

protected:
  void press() override { call(&viewkit::ButtonControl::action); }
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace qt
