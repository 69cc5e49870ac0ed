// SPDX-License-Identifier: MIT
#include "controls/HelpButton.hpp"

#include "paint/Look.hpp"
#include "paint/NodePainter.hpp"
#include "paint/Style.hpp"
#include "paint/Symbols.hpp"

#include <QPainter>

namespace qt {

QSizeF HelpButton::sizeFor() { return {look::helpButton::kDiameter, look::helpButton::kDiameter}; }

void HelpButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QRectF circle(0, 0, qMin(width(), height()), qMin(width(), height()));
  circle.moveCenter(QRectF(rect()).center());
  const qreal radius = circle.width() / 2;
  Style::drawButtonSurface(painter, circle, radius, styleOption());
  const QSizeF size(look::helpButton::kSymbolSize, look::helpButton::kSymbolSize);
  const QPointF corner =
      circle.center() - QPointF(look::helpButton::kSymbolSize, look::helpButton::kSymbolSize) / 2;
  painter.drawPixmap(corner,
                     symbolPixmap("questionmark", size, palette().color(QPalette::ButtonText),
                                  devicePixelRatioOf(painter)));
  Style::drawKeyboardFocus(painter, *this, circle, radius);
}

}  // namespace qt
