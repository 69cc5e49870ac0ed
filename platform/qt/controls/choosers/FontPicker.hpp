// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"

#include <QFontDialog>
#include <QPointer>
#include <optional>

namespace qt {

// A button that shows a sample of a font and opens the font chooser.
class FontPicker : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;
  ~FontPicker() override { delete dialog_; }

  void refresh() override;
  bool isAtRest() const override { return !dialog_ && ButtonWidget::isAtRest(); }

  static QSizeF sizeFor(const viewkit::FontPickerControl& picker);

protected:
  void press() override;
  void paintEvent(QPaintEvent* event) override;

private:
  // `before` is what the user brings back by rejecting the dialog.
  void makeDialog(const appkit::Font& before);
  void showInDialog(const appkit::Font& font);
  void choose(const appkit::Font& picked);

  QPointer<QFontDialog> dialog_;
  // The stored font, and the nearest font that the dialog can show: it knows only whole sizes and
  // installed families. What the user does not change in the dialog stays as it is in `font_`.
  appkit::Font font_;
  appkit::Font shownFont_;
  // The last font that the user chose in the open dialog.
  std::optional<appkit::Font> chosen_;
};

}  // namespace qt
