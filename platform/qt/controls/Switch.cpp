#include "controls/Switch.hpp"

#include "mirror/Mirror.hpp"
#include "paint/Colors.hpp"
#include "paint/RoundedRect.hpp"
#include "paint/Style.hpp"

#include <QPainter>

namespace qt {

namespace {

constexpr int kMilliseconds = 120;
// Around the track, for the ring that shows the focus.
constexpr qreal kRingSpace = 3;
constexpr qreal kKnobInset = 2;

QSizeF trackSize(viewkit::ToggleControl::Size size) {
  return size == viewkit::ToggleControl::Size::small ? QSizeF(28, 16) : QSizeF(36, 20);
}

}  // namespace

Switch::Switch(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent)
    : ButtonWidget(mirror, node, parent) {
  position_.setDuration(kMilliseconds);
  position_.setEasingCurve(QEasingCurve::InOutQuad);
  showAtOnce(std::get<viewkit::ToggleControl>(*node.control()).isOn);
  connect(&position_, &QVariantAnimation::valueChanged, this, [this] { update(); });
}

QSizeF Switch::sizeFor(const viewkit::ToggleControl& toggle) {
  const QSizeF track = trackSize(toggle.size);
  return {track.width() + 2 * kRingSpace, track.height() + 2 * kRingSpace};
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
    const bool moves = isVisible() && !mirror().host().environment().reducedMotion;
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
  const QColor off = blended(window, label, underMouse() ? 0.32 : 0.26);
  QColor on = palette().color(QPalette::Active, QPalette::Highlight);
  if (underMouse()) on = blended(on, label, 0.1);
  QColor fill = blended(off, on, position);
  if (!isEnabled()) fill = blended(window, fill, 0.4);
  drawRoundedRect(painter, track, {.radius = radius, .fill = fill});

  const qreal diameter = track.height() - 2 * kKnobInset;
  const double fromLeft = layoutDirection() == Qt::RightToLeft ? 1 - position : position;
  const qreal x =
      track.left() + kKnobInset + fromLeft * (track.width() - diameter - 2 * kKnobInset);
  const QRectF knob(x, track.top() + kKnobInset, diameter, diameter);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 40));
  painter.drawEllipse(knob.adjusted(-0.5, 0, 0.5, 1));
  drawRoundedRect(painter, knob,
                  {.radius = diameter / 2,
                   .fill = isEnabled() ? QColor(Qt::white) : blended(fill, Qt::white, 0.7)});
  if (isDown()) {
    painter.setBrush(QColor(0, 0, 0, 24));
    painter.drawEllipse(knob);
  }
  if (Style::showsFocus(*this)) {
    const QRectF ring = track.adjusted(-kRingSpace, -kRingSpace, kRingSpace, kRingSpace);
    Style::drawFocusRing(painter, ring, ring.height() / 2, palette());
  }
}

}  // namespace qt
