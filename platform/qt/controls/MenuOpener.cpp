#include "MenuOpener.hpp"

#include <QKeyEvent>

namespace qt {

void MenuOpener::press() {
  const auto* menu = control<viewkit::MenuControl>();
  if (popup_ || !menu || !menu->items) return;
  const std::string current = currentTitle(*menu);
  const auto makeItems = menu->items;
  auto items = makeItems();
  if (items.empty() || !node()) return;
  popup_ = new MenuPopup(std::move(items), current, *this);
  connect(popup_, &QObject::destroyed, this, [this] { update(); });
  open(*popup_);
  update();
}

void MenuOpener::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) {
    press();
  } else {
    event->ignore();
  }
}

void MenuOpener::mouseReleaseEvent(QMouseEvent* event) { event->accept(); }

void MenuOpener::keyPressEvent(QKeyEvent* event) {
  const auto plain = event->modifiers() & ~Qt::KeypadModifier;
  if (event->key() == Qt::Key_Down && (plain == Qt::NoModifier || plain == Qt::AltModifier)) {
    press();
  } else {
    ButtonWidget::keyPressEvent(event);
  }
}

}  // namespace qt
