#include "controls/ButtonWidget.hpp"

#include "mirror/Mirror.hpp"

#include <QKeyEvent>

namespace qt {

ButtonWidget::ButtonWidget(Mirror& mirror, const viewkit::PresentationNode& node, QWidget& parent)
    : QAbstractButton(&parent), ControlWidget(mirror, node) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  connect(this, &QAbstractButton::clicked, this, [this] { pressUpToDate(); });
}

bool ButtonWidget::performPress() {
  if (isEnabled()) pressUpToDate();
  return true;
}

void ButtonWidget::pressUpToDate() {
  if (!node()) return;
  mirror().host().update();
  if (node() && isEnabled()) press();
}

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Arrow keys do not move between buttons: they belong to the window.
  const bool isArrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
  if (isReturn) {
    if (!event->isAutoRepeat()) click();
  } else if (isArrow) {
    event->ignore();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

QStyleOption ButtonWidget::styleOption() const {
  QStyleOption option;
  option.initFrom(this);
  if (isDown()) option.state |= QStyle::State_Sunken;
  return option;
}

}  // namespace qt
