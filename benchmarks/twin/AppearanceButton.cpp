// SPDX-License-Identifier: MIT
#include "AppearanceButton.hpp"

#include <QPainter>

namespace twin {

namespace {

constexpr QRectF kPicture(4, 4, 76, 50);
constexpr QRectF kContent(28, 14, 52, 40);
constexpr qreal kCornerRadius = 6;
constexpr qreal kRing = 3;

}  // namespace

AppearanceButton::AppearanceButton(const QString& name, QColor window, QColor content,
                                   QWidget* parent)
    : QAbstractButton(parent), window_(window), content_(content) {
  setText(name);
  setCheckable(true);
  setAutoExclusive(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void AppearanceButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(isChecked() ? QPen(palette().highlight(), kRing) : QPen(palette().mid(), 1));
  painter.setBrush(window_);
  painter.drawRoundedRect(kPicture, kCornerRadius, kCornerRadius);
  painter.setPen(Qt::NoPen);
  painter.setBrush(content_);
  painter.drawRect(kContent);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(rect(), Qt::AlignHCenter | Qt::AlignBottom, text());
}

}  // namespace twin
