// SPDX-License-Identifier: MIT
#include "accessibility/makeAccessible.hpp"

#include "accessibility/AccessibleControl.hpp"
#include "accessibility/AccessibleMenu.hpp"
#include "accessibility/AccessibleRoot.hpp"
#include "accessibility/AccessibleTabBar.hpp"
#include "accessibility/AccessibleText.hpp"
#include "accessibility/AccessibleWindow.hpp"
#include "controls/ControlWidget.hpp"

#include <QWidget>

namespace qt {

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
  if (const auto* root = dynamic_cast<AccessibleRoot*>(object))
    return new AccessibleWindow(*static_cast<QWidget*>(object), *root);
  if (auto* menu = dynamic_cast<MenuList*>(object)) return new AccessibleMenu(*menu);
  auto* control = dynamic_cast<ControlWidget*>(object);
  if (!control) return nullptr;
  control->noteAccessible();
  if (auto* tabs = dynamic_cast<QTabBar*>(object)) return new AccessibleTabBar(*control, *tabs);
  if (auto* edit = dynamic_cast<QTextEdit*>(object)) return new AccessibleText(*control, *edit);
  if (auto* opener = dynamic_cast<MenuOpener*>(object))
    return new AccessibleMenuOpener(*control, *opener);
  return new AccessibleControl(*control);
}

}  // namespace qt
