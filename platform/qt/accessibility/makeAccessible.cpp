#include "makeAccessible.hpp"

#include "AccessibleControl.hpp"
#include "AccessibleTabBar.hpp"
#include "AccessibleText.hpp"
#include "AccessibleWindow.hpp"
#include "WindowWidget.hpp"
#include "controls/ControlWidget.hpp"

namespace qt {

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
  if (auto* window = dynamic_cast<WindowWidget*>(object)) return new AccessibleWindow(*window);
  auto* control = dynamic_cast<ControlWidget*>(object);
  if (!control) return nullptr;
  if (auto* tabs = dynamic_cast<QTabBar*>(object)) return new AccessibleTabBar(*control, *tabs);
  if (auto* edit = dynamic_cast<QTextEdit*>(object)) return new AccessibleText(*control, *edit);
  return new AccessibleControl(*control);
}

}  // namespace qt
