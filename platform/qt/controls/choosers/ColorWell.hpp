// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"

#include <QColorDialog>
#include <QPointer>

namespace qt {

// A button that shows a colour and opens the colour chooser. Each colour picked there is written at
// once. Escape restores the colour that was stored when the chooser was opened; Return keeps the
// picked one.
class ColorWell : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;
  ~ColorWell() override { delete dialog_; }

  void closeOpened() override;
  bool isAtRest() const override { return !dialog_ && ButtonWidget::isAtRest(); }

  static QSizeF sizeFor();

protected:
  void press() override;
  void paintEvent(QPaintEvent* event) override;

private:
  void open(const viewkit::ColorWellControl& well);

  QPointer<QColorDialog> dialog_;
};

}  // namespace qt
