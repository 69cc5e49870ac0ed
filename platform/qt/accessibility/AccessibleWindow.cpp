// SPDX-License-Identifier: MIT
#include "accessibility/AccessibleWindow.hpp"

#include "accessibility/AccessibleRoot.hpp"
#include "accessibility/AccessibleTree.hpp"
#include "bridge/MirroredTree.hpp"
#include "controls/menus/MenuList.hpp"

namespace qt {

AccessibleWindow::AccessibleWindow(QWidget& widget, const AccessibleRoot& root)
    : QAccessibleWidget(&widget, QAccessible::Window), root_(root) {}

QAccessibleInterface* AccessibleWindow::contextMenu() const {
  MenuList* list = root_.contextMenuList();
  return list ? QAccessible::queryAccessibleInterface(list) : nullptr;
}

QAccessibleInterface* AccessibleWindow::child(int index) const {
  AccessibleTree* tree = root_.accessibleTree();
  if (!tree) return nullptr;
  const bool isMenu = index == AccessibleTree::childCount(tree->rootNode());
  return isMenu ? contextMenu() : tree->childOf(tree->rootNode(), index);
}

int AccessibleWindow::childCount() const {
  const AccessibleTree* tree = root_.accessibleTree();
  return tree ? AccessibleTree::childCount(tree->rootNode()) + (contextMenu() ? 1 : 0) : 0;
}

int AccessibleWindow::indexOfChild(const QAccessibleInterface* child) const {
  AccessibleTree* tree = root_.accessibleTree();
  if (!tree) return -1;
  const bool isMenu = child && child == contextMenu();
  return isMenu ? AccessibleTree::childCount(tree->rootNode())
                : tree->indexIn(tree->rootNode(), child);
}

QAccessibleInterface* AccessibleWindow::childAt(int x, int y) const {
  AccessibleTree* tree = root_.accessibleTree();
  return tree ? tree->childAt(tree->rootNode(), {x, y}) : nullptr;
}

}  // namespace qt
