#include "controls/menus/MenuOpener.hpp"

#include "mirror/Mirror.hpp"
#include "viewkit/KeyRouter.hpp"
#include "window/KeyEvents.hpp"

#include <QKeyEvent>

namespace qt {

void MenuOpener::press() {
  const auto* menu = control<viewkit::MenuControl>();
  if (popup_ || !menu || !menu->items) return;
  const std::string current = currentTitle(*menu);
  const auto makeItems = menu->items;
  auto items = makeItems();
  if (items.empty() || !node()) return;
  // The views may be about to take the control away, and then the item does nothing.
  for (viewkit::MenuItem& item : items) {
    item.action = [this, alive = QPointer<QWidget>(this), action = std::move(item.action)] {
      if (alive && node()) mirror().host().update();
      action();
    };
  }
  popup_ = new MenuPopup(std::move(items), current, *this);
  connect(popup_, &QObject::destroyed, this, [this] { update(); });
  open(*popup_);
  update();
}

void MenuOpener::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    pressUpToDate();
  } else {
    event->ignore();
  }
}

void MenuOpener::closeOpened() {
  if (popup_) popup_->close();
}

void MenuOpener::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void MenuOpener::keyPressEvent(QKeyEvent* event) {
  if (viewkit::opensMenu(eventFrom(*event))) {
    if (!event->isAutoRepeat()) pressUpToDate();
  } else {
    ButtonWidget::keyPressEvent(event);
  }
}

}  // namespace qt
