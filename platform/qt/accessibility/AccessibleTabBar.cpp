#include "AccessibleTabBar.hpp"

namespace qt {

AccessibleTabBar::~AccessibleTabBar() {
  for (const QAccessible::Id id : tabs_) QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* AccessibleTabBar::child(int index) const {
  if (index < 0 || index >= bar_.count()) return nullptr;
  while (static_cast<int>(tabs_.size()) <= index) {
    auto* tab = new AccessibleTab(bar_, static_cast<int>(tabs_.size()));
    tabs_.push_back(QAccessible::registerAccessibleInterface(tab));
  }
  return QAccessible::accessibleInterface(tabs_[static_cast<size_t>(index)]);
}

int AccessibleTabBar::indexOfChild(const QAccessibleInterface* child) const {
  for (int i = 0; i < childCount(); ++i) {
    if (this->child(i) == child) return i;
  }
  return -1;
}

QAccessibleInterface* AccessibleTabBar::childAt(int x, int y) const {
  return child(bar_.tabAt(bar_.mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* AccessibleTab::parent() const {
  return bar_ ? QAccessible::queryAccessibleInterface(bar_) : nullptr;
}

QString AccessibleTab::text(QAccessible::Text kind) const {
  return isValid() && kind == QAccessible::Name ? bar_->tabText(index_) : QString();
}

QRect AccessibleTab::rect() const {
  if (!isValid()) return {};
  const QRect tab = bar_->tabRect(index_);
  return {bar_->mapToGlobal(tab.topLeft()), tab.size()};
}

QAccessible::State AccessibleTab::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.selectable = true;
  state.focusable = true;
  state.selected = bar_->currentIndex() == index_;
  state.focused = state.selected && bar_->hasFocus();
  state.disabled = !bar_->isEnabled();
  state.invisible = !bar_->isVisible();
  return state;
}

void* AccessibleTab::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

void AccessibleTab::doAction(const QString& name) {
  if (isValid() && name == pressAction()) bar_->setCurrentIndex(index_);
}

}  // namespace qt
