// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"

#include <QFileDialog>
#include <QPointer>

namespace qt {

// A push button that opens a chooser of files.
class FileButton : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;

  static QSizeF sizeFor(const viewkit::FileButtonControl& button);

  void closeOpened() override;

protected:
  void press() override;
  void paintEvent(QPaintEvent* event) override;

private:
  QPointer<QFileDialog> dialog_;
};

}  // namespace qt
