// SPDX-License-Identifier: MIT
#pragma once

#include "controls/ButtonWidget.hpp"

#include <optional>

namespace qt {

// A push button with a title, a symbol, or both.
class PushButton : public ButtonWidget {
public:
  using ButtonWidget::ButtonWidget;

  static QSizeF sizeFor(const viewkit::ButtonControl& button);
  // Paints a widget as a push button. The title may be empty.
  static void draw(QWidget& widget, const QString& title,
                   const std::optional<viewkit::SymbolName>& symbol, const QStyleOption& option);

protected:
  void press() override { call(&viewkit::ButtonControl::action); }
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace qt
