#include "accessibility/makeAccessible.hpp"

#include "accessibility/AccessibleControl.hpp"
#include "accessibility/AccessibleMenu.hpp"
#include "accessibility/AccessibleTabBar.hpp"
#include "accessibility/AccessibleText.hpp"
#include "accessibility/AccessibleWindow.hpp"
#include "controls/ControlWidget.hpp"
#include "window/WindowWidget.hpp"

namespace qt {

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
  if (auto* window = dynamic_cast<WindowWidget*>(object)) return new AccessibleWindow(*window);
  if (auto* menu = dynamic_cast<MenuList*>(object)) return new AccessibleMenu(*menu);
  auto* control = dynamic_cast<ControlWidget*>(object);
  if (!control) return nullptr;
  control->setTold(true);
  if (auto* tabs = dynamic_cast<QTabBar*>(object)) return new AccessibleTabBar(*control, *tabs);
  if (auto* edit = dynamic_cast<QTextEdit*>(object)) return new AccessibleText(*control, *edit);
  if (auto* opener = dynamic_cast<MenuOpener*>(object))
    return new AccessibleMenuOpener(*control, *opener);
  return new AccessibleControl(*control);
}

}  // namespace qt
