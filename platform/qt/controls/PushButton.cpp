#include "controls/PushButton.hpp"

#include "paint/Fonts.hpp"
#include "paint/NodePainter.hpp"
#include "paint/Style.hpp"
#include "paint/Symbols.hpp"

#include <QApplication>
#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace qt {

namespace {

constexpr qreal kMargin = 12;
constexpr qreal kSymbolMargin = 7;
constexpr qreal kSymbolSize = 14;
constexpr qreal kGap = 6;

}  // namespace

QSizeF PushButton::sizeFor(const viewkit::ButtonControl& button) {
  const QFontMetricsF metrics(QApplication::font());
  qreal width = 2 * (button.title.empty() ? kSymbolMargin : kMargin);
  if (!button.title.empty()) width += std::ceil(metrics.horizontalAdvance(qt::text(button.title)));
  if (button.symbol) width += kSymbolSize;
  if (button.symbol && !button.title.empty()) width += kGap;
  return {width, Style::controlHeight()};
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
  const auto* button = control<viewkit::ButtonControl>();
  if (!button) return;
  QPainter painter(this);
  const QStyleOption option = styleOption();
  const QRectF frame = rect();
  Style::drawButtonSurface(painter, frame, Style::kCornerRadius, option);

  const QColor color = palette().color(QPalette::ButtonText);
  const QString title = qt::text(button->title);
  const qreal margin = title.isEmpty() ? kSymbolMargin : kMargin;
  const qreal symbolWidth = button->symbol ? kSymbolSize + (title.isEmpty() ? 0 : kGap) : 0;
  const QFontMetricsF metrics(font());
  const QString shown =
      metrics.elidedText(title, Qt::ElideRight, frame.width() - 2 * margin - symbolWidth + 1);
  const qreal contentWidth = symbolWidth + metrics.horizontalAdvance(shown);
  QRectF content((frame.width() - contentWidth) / 2, 0, contentWidth, frame.height());
  if (button->symbol) {
    QRectF place(content.left(), std::floor((frame.height() - kSymbolSize) / 2), kSymbolSize,
                 kSymbolSize);
    if (layoutDirection() == Qt::RightToLeft) place.moveRight(content.right());
    painter.drawPixmap(
        QPointF(std::floor(place.left()), place.top()),
        symbolPixmap(button->symbol->text(), place.size(), color, devicePixelRatioOf(painter)));
    if (layoutDirection() == Qt::RightToLeft) {
      content.setRight(place.left() - kGap);
    } else {
      content.setLeft(place.right() + kGap);
    }
  }
  painter.setPen(color);
  if (!title.isEmpty())
    painter.drawText(content.adjusted(-1, 0, 1, 0), Qt::AlignCenter | Qt::TextSingleLine, shown);
  if (Style::showsFocus(*this))
    Style::drawFocusRing(painter, frame, Style::kCornerRadius, palette());
}

}  // namespace qt
