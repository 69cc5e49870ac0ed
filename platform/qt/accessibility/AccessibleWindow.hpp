// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

namespace qt {

class AccessibleRoot;

// The accessible interface of a window. Its children are the topmost accessible nodes of the tree.
class AccessibleWindow : public QAccessibleWidget {
public:
  // `root` is the widget's other face.
  AccessibleWindow(QWidget& widget, const AccessibleRoot& root);

  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;

private:
  // The open context menu, the last child; null when none is open.
  QAccessibleInterface* contextMenu() const;

  const AccessibleRoot& root_;
};

}  // namespace qt
