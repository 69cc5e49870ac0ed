// SPDX-License-Identifier: MIT
#pragma once

#include "accessibility/AccessibleControl.hpp"
#include "accessibility/AccessibleParts.hpp"
#include "controls/menus/MenuList.hpp"
#include "controls/menus/MenuOpener.hpp"

#include <QAccessibleWidget>

namespace qt {

// The accessible interface of an open menu. Its parent is the control that opened it.
class AccessibleMenu : public QAccessibleWidget, private PartedWidget {
public:
  explicit AccessibleMenu(MenuList& list)
      : QAccessibleWidget(&list, QAccessible::PopupMenu), list_(list), items_(*this) {}

  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(list_.opener());
  }
  QAccessibleInterface* child(int index) const override { return items_.part(index); }
  int childCount() const override { return partCount(); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return items_.indexOf(child);
  }
  QAccessibleInterface* childAt(int x, int y) const override { return items_.partAt({x, y}); }

private:
  QWidget& partedWidget() const override { return list_; }
  QAccessible::Role partRole() const override { return QAccessible::MenuItem; }
  int partCount() const override { return list_.rowCount(); }
  QString partName(int index) const override { return list_.title(index); }
  QRect partRect(int index) const override {
    const QRect row = list_.rowRect(index);
    return row.translated(0, -list_.verticalOffset());
  }
  bool isCurrentPart(int index) const override { return list_.currentRow() == index; }
  bool isPartEnabled(int index) const override { return list_.isEnabled(index); }
  void pressPart(int index) override { list_.pick(index); }

  MenuList& list_;
  AccessibleParts items_;
};

// The accessible interface of a control that opens a menu. The open menu is its child, because
// assistive technology is not told of the menu's own window.
class AccessibleMenuOpener : public AccessibleControl {
public:
  AccessibleMenuOpener(ControlWidget& control, MenuOpener& opener)
      : AccessibleControl(control), opener_(opener) {}

  QAccessibleInterface* child(int index) const override { return index == 0 ? menu() : nullptr; }
  int childCount() const override { return menu() ? 1 : 0; }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child && child == menu() ? 0 : -1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    QAccessibleInterface* open = menu();
    return open && open->rect().contains(x, y) ? open : nullptr;
  }
  QAccessible::State state() const override {
    QAccessible::State state = AccessibleControl::state();
    state.expandable = true;
    state.expanded = menu() != nullptr;
    state.collapsed = !state.expanded;
    return state;
  }

private:
  QAccessibleInterface* menu() const {
    MenuList* list = opener_.openList();
    return list ? QAccessible::queryAccessibleInterface(list) : nullptr;
  }

  MenuOpener& opener_;
};

}  // namespace qt
