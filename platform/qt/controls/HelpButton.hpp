// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"

namespace qt {

// The small round button that opens a page's help.
class HelpButton : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;

  static QSizeF sizeFor();

protected:
  void press() override { call(&viewkit::HelpButtonControl::action); }
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace qt
