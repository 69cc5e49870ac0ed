// SPDX-License-Identifier: MIT
#include "SwitchButton.hpp"

#include <QPainter>

namespace twin {

namespace {

constexpr QSizeF kTrack(28, 16);
constexpr qreal kKnobInset = 2;

}  // namespace

SwitchButton::SwitchButton(QWidget* parent) : QAbstractButton(parent) {
  setCheckable(true);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SwitchButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  QRectF track(QPointF(), kTrack);
  track.moveCenter(QRectF(rect()).center());
  painter.setBrush(palette().color(isChecked() ? QPalette::Highlight : QPalette::Mid));
  painter.drawRoundedRect(track, track.height() / 2, track.height() / 2);
  const qreal diameter = track.height() - 2 * kKnobInset;
  const qreal x = isChecked() ? track.right() - kKnobInset - diameter : track.left() + kKnobInset;
  painter.setBrush(Qt::white);
  painter.drawEllipse(QRectF(x, track.top() + kKnobInset, diameter, diameter));
}

}  // namespace twin
