// SPDX-License-Identifier: MIT
#include "controls/PushButton.hpp"

#include "bridge/Strings.hpp"
#include "paint/Look.hpp"
#include "paint/NodePainter.hpp"
#include "paint/Style.hpp"
#include "paint/Symbols.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace qt {

QSizeF PushButton::sizeFor(const viewkit::ButtonControl& button) {
  const QFontMetricsF metrics(QApplication::font());
  qreal width =
      2 * (button.title.empty() ? look::pushButton::kSymbolMargin : look::pushButton::kMargin);
  if (!button.title.empty()) width += std::ceil(metrics.horizontalAdvance(toQString(button.title)));
  if (button.symbol) width += look::pushButton::kSymbolSize;
  if (button.symbol && !button.title.empty()) width += look::pushButton::kGap;
  return {width, Style::controlHeight()};
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
  if (const auto* button = control<viewkit::ButtonControl>())
    draw(*this, toQString(button->title), button->symbol, styleOption());
}

void PushButton::draw(QWidget& widget, const QString& title,
                      const std::optional<viewkit::SymbolName>& symbol,
                      const QStyleOption& option) {
  QPainter painter(&widget);
  const QRectF frame = widget.rect();
  const bool rightToLeft = widget.layoutDirection() == Qt::RightToLeft;
  Style::drawButtonSurface(painter, frame, look::kCornerRadius, option);

  const QColor color = widget.palette().color(QPalette::ButtonText);
  const qreal margin =
      title.isEmpty() ? look::pushButton::kSymbolMargin : look::pushButton::kMargin;
  const qreal symbolWidth =
      symbol ? look::pushButton::kSymbolSize + (title.isEmpty() ? 0 : look::pushButton::kGap) : 0;
  const QFontMetricsF metrics(widget.font());
  const QString shown = metrics.elidedText(
      title, Qt::ElideRight, frame.width() - 2 * margin - symbolWidth + look::kElisionTolerance);
  const qreal contentWidth = symbolWidth + metrics.horizontalAdvance(shown);
  QRectF content((frame.width() - contentWidth) / 2, 0, contentWidth, frame.height());
  if (symbol) {
    QRectF place(content.left(), std::floor((frame.height() - look::pushButton::kSymbolSize) / 2),
                 look::pushButton::kSymbolSize, look::pushButton::kSymbolSize);
    if (rightToLeft) place.moveRight(content.right());
    painter.drawPixmap(
        QPointF(std::floor(place.left()), place.top()),
        symbolPixmap(symbol->text(), place.size(), color, devicePixelRatioOf(painter)));
    if (rightToLeft) {
      content.setRight(place.left() - look::pushButton::kGap);
    } else {
      content.setLeft(place.right() + look::pushButton::kGap);
    }
  }
  painter.setPen(color);
  if (!title.isEmpty())
    painter.drawText(content.adjusted(-look::kElisionTolerance, 0, look::kElisionTolerance, 0),
                     Qt::AlignCenter | Qt::TextSingleLine, shown);
  Style::drawKeyboardFocus(painter, widget, frame);
}

}  // namespace qt
