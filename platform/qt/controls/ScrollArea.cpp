#include "controls/ScrollArea.hpp"

#include "bridge/MirroredTree.hpp"
#include "controls/ThinScrollBar.hpp"
#include "paint/Look.hpp"

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

// Of one step of a mouse wheel, in eighths of a degree.
constexpr double kAnglePerStep = 120;

}  // namespace

ScrollArea::ScrollArea(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& parent)
    : QWidget(&parent), ControlWidget(tree, node), bar_(new ThinScrollBar(*this)) {
  glide_.setDuration(look::scrollArea::kGlideDuration);
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
  tree().host().update();
}

void ScrollArea::glideTo(double offset) {
  const auto* scroll = control<viewkit::ScrollControl>();
  if (!scroll) return;
  const double bounded = std::clamp(offset, 0.0, maximum());
  glide_.stop();
  if (tree().host().environment().reducedMotion) {
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
  bar_->setSingleStep(qRound(look::scrollArea::kLineHeight));
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
  tree().paint(painter, *this, event->rect());
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
  // At its end the area leaves the wheel to the areas around it.
  if (!scroll || !isVertical || isAtEnd) {
    event->ignore();
    return;
  }
  if (!event->pixelDelta().isNull()) {
    glide_.stop();
    scrollTo(scroll->offset.y - event->pixelDelta().y());
  } else {
    glideTo(from - angle / kAnglePerStep * QApplication::wheelScrollLines() *
                       look::scrollArea::kLineHeight);
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
    case Qt::Key_PageUp:
      glideTo(scroll->offset.y - height() * look::scrollArea::kPageShare);
      return;
    case Qt::Key_PageDown:
      glideTo(scroll->offset.y + height() * look::scrollArea::kPageShare);
      return;
    case Qt::Key_Home: glideTo(0); return;
    case Qt::Key_End: glideTo(maximum()); return;
    default: event->ignore();
  }
}

}  // namespace qt
