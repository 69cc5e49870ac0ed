// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"

namespace qt {

// A button without a surface: only the views in it are seen.
class PlainButton : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;

  bool holdsChildren() const override { return true; }

protected:
  void press() override { call(&viewkit::PlainButtonControl::action); }
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace qt
