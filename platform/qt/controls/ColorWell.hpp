#pragma once

#include "ButtonWidget.hpp"

#include <QColorDialog>
#include <QPointer>

namespace qt {

// A swatch of a colour; pressing it opens the colour chooser.
class ColorWell : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;
  ~ColorWell() override { delete dialog_; }

  bool isAtRest() const override { return !dialog_ && ButtonWidget::isAtRest(); }

  static QSizeF sizeFor();

protected:
  void press() override;
  void paintEvent(QPaintEvent* event) override;

private:
  QPointer<QColorDialog> dialog_;
};

}  // namespace qt
