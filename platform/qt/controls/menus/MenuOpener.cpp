// SPDX-License-Identifier: MIT
#include "controls/menus/MenuOpener.hpp"

#include "bridge/KeyEvents.hpp"
#include "bridge/MirroredTree.hpp"
#include "viewkit/KeyRouter.hpp"

#include <QKeyEvent>

namespace qt {

void MenuOpener::press() {
  const auto* menu = control<viewkit::MenuControl>();
  if (popup_ || !menu || !menu->items) return;
  const std::string current = currentTitle(*menu);
  const auto makeItems = menu->items;
  auto items = makeItems();
  if (items.empty() || !node()) return;
  // An item acts on views that are up to date. The update may remove the control, but not the
  // action, which is a copy.
  for (viewkit::MenuItem& item : items) {
    item.action = [this, alive = QPointer<QWidget>(this), action = std::move(item.action)] {
      if (alive && node()) tree().host().update();
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
