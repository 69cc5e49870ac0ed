#include "ControlWidget.hpp"

#include "foundation/MainQueue.hpp"

#include <QPointer>

namespace qt {

void ControlWidget::refreshLater() {
  foundation::MainQueue::mainQueue().async([this, alive = QPointer<QWidget>(&widget())] {
    if (alive && node_) refresh();
  });
}

}  // namespace qt
