#include "makeAccessible.hpp"

#include "AccessibleControl.hpp"
#include "AccessibleText.hpp"
#include "AccessibleWindow.hpp"
#include "WindowWidget.hpp"
#include "controls/ControlWidget.hpp"
#include "controls/TabBar.hpp"

namespace qt {

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
  if (auto* window = dynamic_cast<WindowWidget*>(object)) return new AccessibleWindow(*window);
  auto* control = dynamic_cast<ControlWidget*>(object);
  // Qt tells of each tab of a tab bar.
  if (!control || dynamic_cast<TabBar*>(object)) return nullptr;
  if (auto* edit = dynamic_cast<QTextEdit*>(object)) return new AccessibleText(*control, *edit);
  return new AccessibleControl(*control);
}

}  // namespace qt
