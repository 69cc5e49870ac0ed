// SPDX-License-Identifier: MIT
#include "controls/Switch.hpp"

#include "bridge/MirroredTree.hpp"
#include "paint/Colors.hpp"
#include "paint/Look.hpp"
#include "paint/RoundedRect.hpp"
#include "paint/Style.hpp"

#include <QPainter>

namespace qt {

namespace {

QSizeF trackSize(viewkit::ToggleControl::Size size) {
  return size == viewkit::ToggleControl::Size::small
             ? QSizeF(look::toggle::kSmallTrackWidth, look::toggle::kSmallTrackHeight)
             : QSizeF(look::toggle::kTrackWidth, look::toggle::kTrackHeight);
}

}  // namespace

Switch::Switch(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent)
    : ButtonWidget(tree, node, parent) {
  position_.setDuration(look::toggle::kMoveDuration);
  position_.setEasingCurve(QEasingCurve::InOutQuad);
  showAtOnce(std::get<viewkit::ToggleControl>(*node.control()).isOn);
  connect(&position_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

QSizeF Switch::sizeFor(const viewkit::ToggleControl& toggle) {
  const QSizeF track = trackSize(toggle.size);
  return {track.width() + 2 * look::toggle::kRingSpace,
          track.height() + 2 * look::toggle::kRingSpace};
}

void Switch::startAnew() { showAtOnce(control<viewkit::ToggleControl>()->isOn); }

void Switch::showAtOnce(bool isOn) {
  isOn_ = isOn;
  position_.stop();
  position_.setStartValue(isOn ? 1.0 : 0.0);
  position_.setEndValue(isOn ? 1.0 : 0.0);
}

void Switch::press() {
  if (const auto* toggle = control<viewkit::ToggleControl>())
    call(&viewkit::ToggleControl::set, !toggle->isOn);
}

void Switch::refresh() {
  const auto* toggle = control<viewkit::ToggleControl>();
  if (toggle && toggle->isOn != isOn_) {
    isOn_ = toggle->isOn;
    const double end = isOn_ ? 1 : 0;
    const bool moves = isVisible() && !tree().host().environment().reducedMotion;
    position_.stop();
    position_.setStartValue(moves ? position_.currentValue() : end);
    position_.setEndValue(end);
    if (moves) position_.start();
  }
  update();
}

void Switch::paintEvent(QPaintEvent* /*event*/) {
  const auto* toggle = control<viewkit::ToggleControl>();
  if (!toggle) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QRectF track(QPointF(), trackSize(toggle->size));
  track.moveCenter(QRectF(rect()).center());
  const qreal radius = track.height() / 2;
  const double position = position_.state() == QAbstractAnimation::Running
                              ? position_.currentValue().toDouble()
                              : (isOn_ ? 1.0 : 0.0);

  const QColor window = palette().color(QPalette::Window);
  const QColor label = palette().color(QPalette::Active, QPalette::WindowText);
  const double offStrength = isHighContrast() ? look::toggle::kHighContrastOffStrength
                             : underMouse()   ? look::toggle::kHoveredOffStrength
                                              : look::toggle::kOffStrength;
  const QColor off = blended(window, label, offStrength);
  QColor on = palette().color(QPalette::Active, QPalette::Highlight);
  if (underMouse()) on = blended(on, label, look::toggle::kHoveredOnStrength);
  QColor fill = blended(off, on, position);
  if (!isEnabled()) fill = blended(window, fill, look::kDisabledFillStrength);
  drawRoundedRect(painter, track, {.radius = radius, .fill = fill});

  const qreal diameter = track.height() - 2 * look::toggle::kKnobInset;
  const double fromLeft = layoutDirection() == Qt::RightToLeft ? 1 - position : position;
  const qreal x = track.left() + look::toggle::kKnobInset +
                  fromLeft * (track.width() - diameter - 2 * look::toggle::kKnobInset);
  const QRectF knob(x, track.top() + look::toggle::kKnobInset, diameter, diameter);
  painter.setPen(Qt::NoPen);
  painter.setBrush(look::toggle::kKnobShadow);
  painter.drawEllipse(knob.adjusted(-look::toggle::kKnobShadowSpread, 0,
                                    look::toggle::kKnobShadowSpread,
                                    look::toggle::kKnobShadowDrop));
  drawRoundedRect(painter, knob,
                  {.radius = diameter / 2,
                   .fill = isEnabled() ? look::toggle::kKnob
                                       : blended(fill, look::toggle::kKnob,
                                                 look::toggle::kDisabledKnobStrength)});
  if (isDown()) {
    painter.setBrush(look::toggle::kPressedKnobShade);
    painter.drawEllipse(knob);
  }
  const QRectF ring = track.adjusted(-look::toggle::kRingSpace, -look::toggle::kRingSpace,
                                     look::toggle::kRingSpace, look::toggle::kRingSpace);
  Style::drawKeyboardFocus(painter, *this, ring, ring.height() / 2);
}

}  // namespace qt
