#pragma once

#include "ButtonWidget.hpp"

#include <QFontDialog>
#include <QPointer>

namespace qt {

// A button that shows a sample of the font; pressing it opens the font chooser.
class FontPicker : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;
  ~FontPicker() override { delete dialog_; }

  bool isAtRest() const override { return !dialog_ && ButtonWidget::isAtRest(); }

  static QSizeF sizeFor(const viewkit::FontPickerControl& picker);

protected:
  void press() override;
  void paintEvent(QPaintEvent* event) override;

private:
  QPointer<QFontDialog> dialog_;
};

}  // namespace qt
