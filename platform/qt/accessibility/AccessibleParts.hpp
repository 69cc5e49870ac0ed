// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QWidget>

#include <vector>

namespace qt {

// A widget with parts that are no widgets themselves, such as tabs or the items of a menu.
class PartedWidget {
public:
  virtual ~PartedWidget() = default;

  virtual QWidget& partedWidget() const = 0;
  virtual QAccessible::Role partRole() const = 0;
  virtual int partCount() const = 0;
  virtual QString partName(int index) const = 0;
  // In the widget's coordinates.
  virtual QRect partRect(int index) const = 0;
  virtual bool isCurrentPart(int index) const = 0;
  virtual bool isPartEnabled(int index) const = 0;
  virtual void pressPart(int index) = 0;
};

// The accessible interfaces of the parts of a widget. Each is made when it is first asked for.
class AccessibleParts {
public:
  explicit AccessibleParts(PartedWidget& whole) : whole_(whole) {}
  AccessibleParts(const AccessibleParts&) = delete;
  AccessibleParts& operator=(const AccessibleParts&) = delete;
  ~AccessibleParts();

  QAccessibleInterface* part(int index) const;
  int indexOf(const QAccessibleInterface* part) const;
  QAccessibleInterface* partAt(QPoint onScreen) const;

private:
  PartedWidget& whole_;
  mutable std::vector<QAccessible::Id> made_;
};

}  // namespace qt
