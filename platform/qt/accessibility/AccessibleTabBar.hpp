// SPDX-License-Identifier: MIT
#pragma once

#include "accessibility/AccessibleControl.hpp"
#include "accessibility/AccessibleParts.hpp"

#include <QTabBar>

namespace qt {

// The accessible interface of a tab bar: a list of tabs, one of which is selected.
class AccessibleTabBar : public AccessibleControl, private PartedWidget {
public:
  AccessibleTabBar(ControlWidget& control, QTabBar& bar)
      : AccessibleControl(control), bar_(bar), tabs_(*this) {}

  QAccessibleInterface* child(int index) const override { return tabs_.part(index); }
  int childCount() const override { return bar_.count(); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return tabs_.indexOf(child);
  }
  QAccessibleInterface* childAt(int x, int y) const override { return tabs_.partAt({x, y}); }

private:
  QWidget& partedWidget() const override { return bar_; }
  QAccessible::Role partRole() const override { return QAccessible::PageTab; }
  int partCount() const override { return bar_.count(); }
  QString partName(int index) const override { return bar_.tabText(index); }
  QRect partRect(int index) const override { return bar_.tabRect(index); }
  bool isCurrentPart(int index) const override { return bar_.currentIndex() == index; }
  bool isPartEnabled(int index) const override { return bar_.isTabEnabled(index); }
  void pressPart(int index) override { bar_.setCurrentIndex(index); }

  QTabBar& bar_;
  AccessibleParts tabs_;
};

}  // namespace qt
