// SPDX-License-Identifier: MIT
#include "controls/menus/MenuButton.hpp"

#include "bridge/Strings.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace qt {

QSizeF MenuButton::sizeFor(const viewkit::MenuControl& menu) {
  const qreal title =
      std::ceil(QFontMetricsF(QApplication::font()).horizontalAdvance(toQString(menu.title)));
  return Style::choiceButtonSize(title, look::menuButton::kMargin, look::menuButton::kGap);
}

void MenuButton::paintEvent(QPaintEvent* /*event*/) {
  const auto* menu = control<viewkit::MenuControl>();
  if (!menu) return;
  QPainter painter(this);
  const QRectF area = Style::drawChoiceButton(painter, rect(), look::menuButton::kMargin,
                                              look::menuButton::kGap, styleOption());
  const QString title = QFontMetricsF(font()).elidedText(toQString(menu->title), Qt::ElideRight,
                                                         area.width() + look::kElisionTolerance);
  const int leading = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.drawText(area, leading | Qt::AlignVCenter | Qt::TextSingleLine, title);
  Style::drawKeyboardFocus(painter, *this, rect());
}

}  // namespace qt
