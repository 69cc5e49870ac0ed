#include "controls/Popover.hpp"

#include "mirror/Mirror.hpp"
#include "paint/Style.hpp"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace qt {

namespace {

constexpr int kShadow = 12;
constexpr int kGap = 4;
constexpr int kWindowMargin = 4;

}  // namespace

Popover::Popover(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& canvas)
    : QWidget(&canvas), ControlWidget(mirror, node) {
  qApp->installEventFilter(this);
}

Popover::~Popover() { qApp->removeEventFilter(this); }

QPoint Popover::contentOrigin() const { return {kShadow, kShadow}; }

QRect Popover::placeFor(const QRect& frame) const {
  const QRect window = mirror().canvas().rect().adjusted(kWindowMargin, kWindowMargin,
                                                         -kWindowMargin, -kWindowMargin);
  const QRect anchor =
      node()->parent ? wholePixels(mirror().coordinates().toDevice(node()->parent->frameInWindow()))
                     : frame;
  // Above what it belongs to where there is room, else below it, and always within the window.
  const bool fitsAbove = anchor.top() - kGap - frame.height() >= window.top();
  const int top = fitsAbove ? anchor.top() - kGap - frame.height() : anchor.bottom() + 1 + kGap;
  const int left = anchor.center().x() - frame.width() / 2;
  const QPoint corner(
      std::clamp(left, window.left(), std::max(window.left(), window.right() + 1 - frame.width())),
      std::clamp(top, window.top(), std::max(window.top(), window.bottom() + 1 - frame.height())));
  return QRect(corner, frame.size()).adjusted(-kShadow, -kShadow, kShadow, kShadow);
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress =
      event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
  if (!isPress || !node()) return false;
  // The press before may have closed it already.
  mirror().host().update();
  if (!node()) return false;
  const auto* pressed = qobject_cast<QWidget*>(watched);
  const bool isElsewhere =
      pressed && pressed != this && !isAncestorOf(pressed) && pressed->window() == window();
  // The click is for closing; it does nothing else.
  if (isElsewhere) dismiss();
  return isElsewhere;
}

void Popover::mousePressEvent(QMouseEvent* event) { event->accept(); }

void Popover::mouseReleaseEvent(QMouseEvent* event) {
  mirror().host().click(mirror().treePoint(*this, event->position()));
}

void Popover::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setOpacity(opacity());
  Style::drawShadow(painter, QRectF(rect()).adjusted(kShadow, kShadow, -kShadow, -kShadow),
                    kShadow);
  Style::drawFloatingSurface(painter, QRectF(rect()).adjusted(kShadow, kShadow, -kShadow, -kShadow),
                             Style::kFloatingRadius, palette());
  mirror().paint(painter, *this, event->rect());
}

}  // namespace qt
