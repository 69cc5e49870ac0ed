// SPDX-License-Identifier: MIT
#include "controls/ControlWidget.hpp"

#include "foundation/MainQueue.hpp"

#include <QAccessible>
#include <QPointer>

namespace qt {

bool ControlWidget::isAtRest() const {
  const QWidget* focused = widget().window()->focusWidget();
  return !floats() && focused != &widget();
}

void ControlWidget::discardAccessible() {
  if (!std::exchange(isAccessible_, false)) return;
  QAccessibleInterface* leaving = QAccessible::queryAccessibleInterface(&widget());
  QAccessibleEvent event(leaving, QAccessible::ObjectDestroyed);
  QAccessible::updateAccessibility(&event);
  QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(leaving));
}

void ControlWidget::takeOver(const viewkit::PresentationNode& node) {
  discardAccessible();
  node_ = &node;
  settledOn_ = nullptr;
  startAnew();
}

void ControlWidget::forgetNode() {
  node_ = nullptr;
  closeOpened();
}

void ControlWidget::refreshLater() {
  foundation::MainQueue::mainQueue().async([this, alive = QPointer<QWidget>(&widget())] {
    if (alive && node_) refresh();
  });
}

void ControlWidget::settleOn(std::function<void()> choose) {
  const bool isWaiting = settledOn_ != nullptr;
  settledOn_ = std::move(choose);
  if (isWaiting) return;
  foundation::MainQueue::mainQueue().async([this, alive = QPointer<QWidget>(&widget())] {
    if (!alive) return;
    if (const auto call = std::exchange(settledOn_, nullptr)) call();
  });
}

}  // namespace qt
