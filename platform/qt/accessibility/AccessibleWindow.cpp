#include "accessibility/AccessibleWindow.hpp"

#include "accessibility/told.hpp"
#include "window/WindowWidget.hpp"

namespace qt {

AccessibleWindow::AccessibleWindow(WindowWidget& window)
    : QAccessibleWidget(&window, QAccessible::Window), window_(window) {}

QAccessibleInterface* AccessibleWindow::child(int index) const {
  if (!window_.mirror()) return nullptr;
  return childOf(window_.mirror()->accessibles(), window_.host().presentation(), index);
}

int AccessibleWindow::childCount() const {
  return window_.mirror()
             ? static_cast<int>(AccessibleTree::toldBelow(window_.host().presentation()).size())
             : 0;
}

int AccessibleWindow::indexOfChild(const QAccessibleInterface* child) const {
  if (!window_.mirror()) return -1;
  return indexIn(window_.mirror()->accessibles(), window_.host().presentation(), child);
}

QAccessibleInterface* AccessibleWindow::childAt(int x, int y) const {
  if (!window_.mirror()) return nullptr;
  return childUnder(window_.mirror()->accessibles(), window_.host().presentation(), {x, y});
}

}  // namespace qt
