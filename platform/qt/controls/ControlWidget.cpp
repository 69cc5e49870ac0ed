#include "controls/ControlWidget.hpp"

#include "foundation/MainQueue.hpp"

#include <QPointer>

namespace qt {

bool ControlWidget::isAtRest() const {
  const QWidget* focused = widget().window()->focusWidget();
  return !floats() && focused != &widget();
}

void ControlWidget::takeOver(const viewkit::PresentationNode& node) {
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
