#pragma once

#include <QAccessibleWidget>

namespace qt {

class WindowWidget;

// A window as assistive technology sees it: its children are the first nodes of the tree that are
// told.
class AccessibleWindow : public QAccessibleWidget {
public:
  explicit AccessibleWindow(WindowWidget& window);

  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;

private:
  WindowWidget& window_;
};

}  // namespace qt
