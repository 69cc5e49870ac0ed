#pragma once

#include "controls/ButtonWidget.hpp"

#include <QColorDialog>
#include <QPointer>

namespace qt {

// A swatch of a colour; pressing it opens the colour chooser. Each colour that is picked there is
// told at once; Escape brings back what was stored when the chooser was opened, Return keeps what
// was picked.
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
