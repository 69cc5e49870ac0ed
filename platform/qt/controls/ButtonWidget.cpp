// SPDX-License-Identifier: MIT
#include "controls/ButtonWidget.hpp"

#include "bridge/MirroredTree.hpp"

#include <QKeyEvent>
#include <QPointer>

namespace qt {

ButtonWidget::ButtonWidget(MirroredTree& tree, const viewkit::PresentationNode& node,
                           QWidget& parent)
    : QAbstractButton(&parent), ControlWidget(tree, node) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
}

bool ButtonWidget::performPress() {
  if (isEnabled()) pressUpToDate();
  return true;
}

void ButtonWidget::pressUpToDate() {
  if (!node()) return;
  tree().host().update();
  if (!node() || !isEnabled()) return;
  // The press may close the window.
  const QPointer<ButtonWidget> self(this);
  press();
  if (self && node()) tree().host().update();
}

void ButtonWidget::keyPressEvent(QKeyEvent* event) {
  const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  // Qt would move the focus between buttons; here the window decides what arrow keys do.
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
