#include "controls/ScrollArea.hpp"

#include "controls/ThinScrollBar.hpp"
#include "mirror/Mirror.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QScroller>
#include <QWheelEvent>

#include <algorithm>

namespace qt {

namespace {

constexpr int kGlideMilliseconds = 130;
// Of what is seen: a page keeps some of the one before in sight.
constexpr double kPageShare = 0.9;
constexpr double kPixelsPerLine = 20;
constexpr double kAnglePerStep = 120;

}  // namespace

ScrollArea::ScrollArea(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent)
    : QWidget(&parent), ControlWidget(mirror, node), bar_(new ThinScrollBar(*this)) {
  glide_.setDuration(kGlideMilliseconds);
  glide_.setEasingCurve(QEasingCurve::OutCubic);
  connect(&glide_, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& value) { scrollTo(value.toDouble()); });
  connect(bar_, &QScrollBar::valueChanged, this, [this](int value) {
    glide_.stop();
    scrollTo(value);
  });
  QScroller::grabGesture(this, QScroller::TouchGesture);
}

bool ScrollArea::isAtRest() const {
  const bool isTouched = QScroller::scroller(this)->state() != QScroller::Inactive;
  const bool isMoving =
      isTouched || bar_->isSliderDown() || glide_.state() == QAbstractAnimation::Running;
  return !isMoving && ControlWidget::isAtRest();
}

double ScrollArea::maximum() const {
  const auto* scroll = control<viewkit::ScrollControl>();
  return scroll ? std::max(0.0, scroll->contentSize.height - height()) : 0;
}

void ScrollArea::scrollTo(double offset) {
  const auto* scroll = control<viewkit::ScrollControl>();
  if (!scroll) return;
  const double bounded = std::clamp(offset, 0.0, maximum());
  if (bounded == scroll->offset.y) return;
  call(&viewkit::ScrollControl::scroll, viewkit::Point{scroll->offset.x, bounded});
  mirror().host().update();
}

void ScrollArea::glideTo(double offset) {
  const auto* scroll = control<viewkit::ScrollControl>();
  if (!scroll) return;
  const double bounded = std::clamp(offset, 0.0, maximum());
  glide_.stop();
  if (mirror().host().environment().reducedMotion) {
    scrollTo(bounded);
    return;
  }
  glide_.setStartValue(scroll->offset.y);
  glide_.setEndValue(bounded);
  glide_.start();
}

void ScrollArea::refresh() {
  const auto* scroll = control<viewkit::ScrollControl>();
  if (!scroll) return;
  const QSignalBlocker quiet(bar_);
  bar_->setRange(0, qRound(maximum()));
  bar_->setPageStep(height());
  bar_->setSingleStep(qRound(kPixelsPerLine));
  bar_->setValue(qRound(scroll->offset.y));
  bar_->setVisible(scroll->showsIndicators && maximum() > 0);
}

void ScrollArea::contentsChanged() {
  bar_->raise();
  refresh();
}

bool ScrollArea::event(QEvent* event) {
  const auto* scroll = control<viewkit::ScrollControl>();
  if (scroll && event->type() == QEvent::ScrollPrepare) {
    auto* prepare = static_cast<QScrollPrepareEvent*>(event);
    prepare->setViewportSize(size());
    prepare->setContentPosRange(QRectF(0, 0, 0, maximum()));
    prepare->setContentPos(QPointF(0, scroll->offset.y));
    prepare->accept();
    return true;
  }
  if (scroll && event->type() == QEvent::Scroll) {
    scrollTo(static_cast<QScrollEvent*>(event)->contentPos().y());
    return true;
  }
  return QWidget::event(event);
}

void ScrollArea::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  mirror().paint(painter, *this, event->rect());
}

void ScrollArea::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  bar_->place();
  refresh();
}

void ScrollArea::wheelEvent(QWheelEvent* event) {
  const auto* scroll = control<viewkit::ScrollControl>();
  const double angle = event->angleDelta().y();
  const bool isVertical = std::abs(angle) >= std::abs(event->angleDelta().x());
  const double from = glide_.state() == QAbstractAnimation::Running
                          ? glide_.endValue().toDouble()
                          : (scroll ? scroll->offset.y : 0);
  const bool isAtEnd = angle > 0 ? from <= 0 : from >= maximum();
  // What cannot scroll any further leaves the wheel to what is around it.
  if (!scroll || !isVertical || isAtEnd) {
    event->ignore();
    return;
  }
  if (!event->pixelDelta().isNull()) {
    glide_.stop();
    scrollTo(scroll->offset.y - event->pixelDelta().y());
  } else {
    glideTo(from - angle / kAnglePerStep * QApplication::wheelScrollLines() * kPixelsPerLine);
  }
  event->accept();
}

void ScrollArea::keyPressEvent(QKeyEvent* event) {
  const auto* scroll = control<viewkit::ScrollControl>();
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  if (!scroll || modifiers != Qt::NoModifier || maximum() <= 0) {
    event->ignore();
    return;
  }
  switch (event->key()) {
    case Qt::Key_PageUp: glideTo(scroll->offset.y - height() * kPageShare); return;
    case Qt::Key_PageDown: glideTo(scroll->offset.y + height() * kPageShare); return;
    case Qt::Key_Home: glideTo(0); return;
    case Qt::Key_End: glideTo(maximum()); return;
    default: event->ignore();
  }
}

}  // namespace qt
