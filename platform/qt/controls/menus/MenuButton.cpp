#include "controls/menus/MenuButton.hpp"

#include "paint/Fonts.hpp"
#include "paint/Style.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace qt {

namespace {

constexpr qreal kMargin = 10;
constexpr qreal kGap = 8;

}  // namespace

QSizeF MenuButton::sizeFor(const viewkit::MenuControl& menu) {
  const qreal title =
      std::ceil(QFontMetricsF(QApplication::font()).horizontalAdvance(qt::text(menu.title)));
  return {kMargin + title + kGap + Style::kIndicatorSize + kMargin, Style::controlHeight()};
}

void MenuButton::paintEvent(QPaintEvent* /*event*/) {
  const auto* menu = control<viewkit::MenuControl>();
  if (!menu) return;
  QPainter painter(this);
  const QRectF frame = rect();
  Style::drawButtonSurface(painter, frame, Style::kCornerRadius, styleOption());
  const bool rightToLeft = layoutDirection() == Qt::RightToLeft;
  Style::drawIndicator(painter, frame.adjusted(kMargin, 0, -kMargin, 0), rightToLeft, palette());

  const qreal trailing = kMargin + Style::kIndicatorSize + kGap;
  const QRectF area = rightToLeft ? frame.adjusted(trailing, 0, -kMargin, 0)
                                  : frame.adjusted(kMargin, 0, -trailing, 0);
  painter.setPen(palette().color(QPalette::ButtonText));
  const QString title =
      QFontMetricsF(font()).elidedText(qt::text(menu->title), Qt::ElideRight, area.width() + 1);
  painter.drawText(
      area, (rightToLeft ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter | Qt::TextSingleLine,
      title);
  if (Style::showsFocus(*this))
    Style::drawFocusRing(painter, frame, Style::kCornerRadius, palette());
}

}  // namespace qt
