// SPDX-License-Identifier: MIT
#include "accessibility/AccessibleWindow.hpp"

#include "accessibility/AccessibleRoot.hpp"
#include "accessibility/AccessibleTree.hpp"
#include "bridge/MirroredTree.hpp"

namespace qt {

AccessibleWindow::AccessibleWindow(QWidget& widget, const AccessibleRoot& root)
    : QAccessibleWidget(&widget, QAccessible::Window), root_(root) {}

QAccessibleInterface* AccessibleWindow::child(int index) const {
  AccessibleTree* tree = root_.accessibleTree();
  return tree ? tree->childOf(tree->rootNode(), index) : nullptr;
}

int AccessibleWindow::childCount() const {
  const AccessibleTree* tree = root_.accessibleTree();
  return tree ? AccessibleTree::childCount(tree->rootNode()) : 0;
}

int AccessibleWindow::indexOfChild(const QAccessibleInterface* child) const {
  AccessibleTree* tree = root_.accessibleTree();
  return tree ? tree->indexIn(tree->rootNode(), child) : -1;
}

QAccessibleInterface* AccessibleWindow::childAt(int x, int y) const {
  AccessibleTree* tree = root_.accessibleTree();
  return tree ? tree->childAt(tree->rootNode(), {x, y}) : nullptr;
}

}  // namespace qt
