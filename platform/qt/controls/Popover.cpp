// SPDX-License-Identifier: MIT
#include "controls/Popover.hpp"

#include "bridge/MirroredTree.hpp"
#include "paint/Look.hpp"
#include "paint/Style.hpp"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace qt {

Popover::Popover(MirroredTree& tree, const viewkit::PresentationNode& node, QWidget& canvas)
    : QWidget(&canvas), ControlWidget(tree, node) {
  qApp->installEventFilter(this);
}

Popover::~Popover() { qApp->removeEventFilter(this); }

QPoint Popover::contentOrigin() const {
  return {look::popover::kShadowExtent, look::popover::kShadowExtent};
}

QRect Popover::placeFor(const QRect& frame) const {
  const QRect window =
      tree().canvas().rect().adjusted(look::popover::kWindowMargin, look::popover::kWindowMargin,
                                      -look::popover::kWindowMargin, -look::popover::kWindowMargin);
  const QRect anchor =
      node()->parent ? wholePixels(tree().coordinates().toDevice(node()->parent->frameInWindow()))
                     : frame;
  // Above its view where there is room, else below it, and always within the window.
  const bool fitsAbove = anchor.top() - look::popover::kGap - frame.height() >= window.top();
  const int top = fitsAbove ? anchor.top() - look::popover::kGap - frame.height()
                            : anchor.bottom() + 1 + look::popover::kGap;
  const int left = anchor.center().x() - frame.width() / 2;
  const QPoint corner(
      std::clamp(left, window.left(), std::max(window.left(), window.right() + 1 - frame.width())),
      std::clamp(top, window.top(), std::max(window.top(), window.bottom() + 1 - frame.height())));
  return QRect(corner, frame.size())
      .adjusted(-look::popover::kShadowExtent, -look::popover::kShadowExtent,
                look::popover::kShadowExtent, look::popover::kShadowExtent);
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress =
      event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
  if (!isPress || !node()) return false;
  // The press before this one may have closed the popover.
  tree().host().update();
  if (!node()) return false;
  const auto* pressed = qobject_cast<QWidget*>(watched);
  const bool isElsewhere = pressed && pressed != this && !isAncestorOf(pressed) &&
                           pressed->window() == window() && !isInParent(*pressed, *event);
  // A press that closes the popover does nothing else.
  if (isElsewhere) dismiss();
  return isElsewhere;
}

bool Popover::isInParent(const QWidget& pressed, const QEvent& press) const {
  const auto* popover = control<viewkit::PopoverControl>();
  if (!popover || !popover->staysForParent || !node()->parent) return false;
  const QPointF position = static_cast<const QMouseEvent&>(press).position();
  return node()->parent->frameInWindow().contains(tree().treePoint(pressed, position));
}

void Popover::mousePressEvent(QMouseEvent* event) { event->accept(); }

void Popover::mouseReleaseEvent(QMouseEvent* event) {
  tree().host().click(tree().treePoint(*this, event->position()));
}

void Popover::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setOpacity(opacity());
  Style::drawShadow(
      painter,
      QRectF(rect()).adjusted(look::popover::kShadowExtent, look::popover::kShadowExtent,
                              -look::popover::kShadowExtent, -look::popover::kShadowExtent),
      look::popover::kShadowExtent);
  Style::drawFloatingSurface(
      painter,
      QRectF(rect()).adjusted(look::popover::kShadowExtent, look::popover::kShadowExtent,
                              -look::popover::kShadowExtent, -look::popover::kShadowExtent),
      look::popover::kCornerRadius, palette());
  tree().paint(painter, *this, event->rect());
}

}  // namespace qt
