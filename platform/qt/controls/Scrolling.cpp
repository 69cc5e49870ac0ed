// SPDX-License-Identifier: MIT
#include "controls/Scrolling.hpp"

#include "controls/ThinScrollBar.hpp"
#include "paint/Look.hpp"
#include "viewkit/ViewHost.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QScroller>
#include <QSignalBlocker>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace qt {

namespace {

// The angle of one step of a mouse wheel, in eighths of a degree.
constexpr double kAnglePerStep = 120;

QPointF toQt(viewkit::Point point) { return {point.x, point.y}; }
viewkit::Point fromQt(QPointF point) { return {point.x(), point.y()}; }

}  // namespace

Scrolling::Scrolling(QWidget& area, Source source)
    : area_(area),
      source_(std::move(source)),
      vertical_(new ThinScrollBar(Qt::Vertical, area)),
      horizontal_(new ThinScrollBar(Qt::Horizontal, area)) {
  glide_.setDuration(look::scrollArea::kGlideDuration);
  glide_.setEasingCurve(QEasingCurve::OutCubic);
  connect(&glide_, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& value) { scrollTo(fromQt(value.toPointF())); });
  connect(vertical_, &QScrollBar::valueChanged, this, [this](int value) {
    glide_.stop();
    if (control()) scrollTo({control()->offset.x, double(value)});
  });
  connect(horizontal_, &QScrollBar::valueChanged, this, [this](int value) {
    glide_.stop();
    if (control()) scrollTo({double(value), control()->offset.y});
  });
  QScroller::grabGesture(&area, QScroller::TouchGesture);
}

bool Scrolling::isMoving() const {
  const bool isTouched = QScroller::scroller(&area_)->state() != QScroller::Inactive;
  return isTouched || vertical_->isSliderDown() || horizontal_->isSliderDown() ||
         glide_.state() == QAbstractAnimation::Running;
}

viewkit::Point Scrolling::maximum() const {
  const auto* scroll = control();
  if (!scroll) return {};
  return {std::max(0.0, scroll->contentSize.width - area_.width()),
          std::max(0.0, scroll->contentSize.height - area_.height())};
}

viewkit::Point Scrolling::bounded(viewkit::Point offset) const {
  const viewkit::Point most = maximum();
  return {std::clamp(offset.x, 0.0, most.x), std::clamp(offset.y, 0.0, most.y)};
}

void Scrolling::scrollTo(viewkit::Point offset) {
  const auto* scroll = control();
  if (!scroll) return;
  const viewkit::Point next = bounded(offset);
  if (next == scroll->offset) return;
  const auto call = scroll->scroll;
  call(next);
  source_.host().update();
}

void Scrolling::glideTo(viewkit::Point offset) {
  const auto* scroll = control();
  if (!scroll) return;
  const viewkit::Point end = bounded(offset);
  glide_.stop();
  if (source_.host().environment().reducedMotion) {
    scrollTo(end);
    return;
  }
  glide_.setStartValue(toQt(scroll->offset));
  glide_.setEndValue(toQt(end));
  glide_.start();
}

void Scrolling::refresh() {
  const auto* scroll = control();
  const viewkit::Size content = scroll ? scroll->contentSize : viewkit::Size{};
  const viewkit::Point offset = scroll ? scroll->offset : viewkit::Point{};
  refresh(*vertical_, content.height, area_.height(), offset.y);
  refresh(*horizontal_, content.width, area_.width(), offset.x);
  vertical_->place(horizontal_->isHidden() ? 0 : horizontal_->height());
  horizontal_->place(vertical_->isHidden() ? 0 : vertical_->width());
}

void Scrolling::refresh(ThinScrollBar& bar, double content, double visible, double offset) {
  const QSignalBlocker quiet(&bar);
  const int most = qRound(std::max(0.0, content - visible));
  bar.setRange(0, most);
  bar.setPageStep(qRound(visible));
  bar.setSingleStep(qRound(look::scrollArea::kLineHeight));
  bar.setValue(qRound(offset));
  bar.setVisible(most > 0 && control() && control()->showsIndicators);
}

void Scrolling::raiseBars() {
  vertical_->raise();
  horizontal_->raise();
}

bool Scrolling::touch(QEvent& event) {
  const auto* scroll = control();
  if (!scroll) return false;
  if (event.type() == QEvent::ScrollPrepare) {
    auto& prepare = static_cast<QScrollPrepareEvent&>(event);
    prepare.setViewportSize(area_.size());
    prepare.setContentPosRange(QRectF(QPointF(), toQt(maximum())));
    prepare.setContentPos(toQt(scroll->offset));
    prepare.accept();
    return true;
  }
  if (event.type() != QEvent::Scroll) return false;
  scrollTo(fromQt(static_cast<QScrollEvent&>(event).contentPos()));
  return true;
}

bool Scrolling::wheel(QWheelEvent& event) {
  const auto* scroll = control();
  if (!scroll) return false;
  const QPoint angle = event.angleDelta();
  const bool isVertical = std::abs(angle.y()) >= std::abs(angle.x());
  const bool isGliding = glide_.state() == QAbstractAnimation::Running;
  const viewkit::Point from = isGliding ? fromQt(glide_.endValue().toPointF()) : scroll->offset;
  const viewkit::Point most = maximum();
  const double at = isVertical ? from.y : from.x;
  const double turned = isVertical ? angle.y() : angle.x();
  if (turned > 0 ? at <= 0 : at >= (isVertical ? most.y : most.x)) return false;
  if (!event.pixelDelta().isNull()) {
    glide_.stop();
    scrollTo(scroll->offset - fromQt(event.pixelDelta()));
    return true;
  }
  const double by =
      turned / kAnglePerStep * QApplication::wheelScrollLines() * look::scrollArea::kLineHeight;
  glideTo(isVertical ? viewkit::Point{from.x, from.y - by} : viewkit::Point{from.x - by, from.y});
  return true;
}

bool Scrolling::key(const QKeyEvent& event) {
  const auto* scroll = control();
  const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
  if (!scroll || modifiers != Qt::NoModifier || maximum().y <= 0) return false;
  const double page = area_.height() * look::scrollArea::kPageShare;
  const viewkit::Point from = scroll->offset;
  switch (event.key()) {
    case Qt::Key_PageUp: glideTo({from.x, from.y - page}); return true;
    case Qt::Key_PageDown: glideTo({from.x, from.y + page}); return true;
    case Qt::Key_Home: glideTo({from.x, 0}); return true;
    case Qt::Key_End: glideTo({from.x, maximum().y}); return true;
    default: return false;
  }
}

}  // namespace qt
