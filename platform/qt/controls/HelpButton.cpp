#include "controls/HelpButton.hpp"

#include "paint/NodePainter.hpp"
#include "paint/Style.hpp"
#include "paint/Symbols.hpp"

#include <QPainter>

namespace qt {

namespace {

constexpr qreal kDiameter = 20;
constexpr qreal kSymbolSize = 12;

}  // namespace

QSizeF HelpButton::sizeFor() { return {kDiameter, kDiameter}; }

void HelpButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QRectF circle(0, 0, qMin(width(), height()), qMin(width(), height()));
  circle.moveCenter(QRectF(rect()).center());
  const qreal radius = circle.width() / 2;
  Style::drawButtonSurface(painter, circle, radius, styleOption());
  const QSizeF size(kSymbolSize, kSymbolSize);
  const QPointF corner = circle.center() - QPointF(kSymbolSize, kSymbolSize) / 2;
  painter.drawPixmap(corner,
                     symbolPixmap("questionmark", size, palette().color(QPalette::ButtonText),
                                  devicePixelRatioOf(painter)));
  if (Style::showsFocus(*this)) Style::drawFocusRing(painter, circle, radius, palette());
}

}  // namespace qt
