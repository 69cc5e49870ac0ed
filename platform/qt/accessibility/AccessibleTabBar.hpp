#pragma once

#include "AccessibleControl.hpp"

#include <QPointer>
#include <QTabBar>

#include <vector>

namespace qt {

// A tab bar as assistive technology sees it: a list of tabs, one of them selected.
class AccessibleTabBar : public AccessibleControl {
public:
  AccessibleTabBar(ControlWidget& control, QTabBar& bar) : AccessibleControl(control), bar_(bar) {}
  ~AccessibleTabBar() override;

  QAccessibleInterface* child(int index) const override;
  int childCount() const override { return bar_.count(); }
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;

private:
  QTabBar& bar_;
  // Of the tabs that were asked for, by index.
  mutable std::vector<QAccessible::Id> tabs_;
};

class AccessibleTab : public QAccessibleInterface, public QAccessibleActionInterface {
public:
  AccessibleTab(QTabBar& bar, int index) : bar_(&bar), index_(index) {}

  bool isValid() const override { return bar_ && index_ < bar_->count(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::PageTab; }
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override { return {pressAction()}; }
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
  QPointer<QTabBar> bar_;
  int index_;
};

}  // namespace qt
