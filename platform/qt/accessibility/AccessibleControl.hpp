// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessibleWidget>

namespace qt {

class AccessibleRoot;
class AccessibleTree;
class ControlWidget;

// The accessible interface of a control: that of its widget, with the name, role and parent of its
// node.
class AccessibleControl : public QAccessibleWidget {
public:
  explicit AccessibleControl(ControlWidget& control);

  bool isValid() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;
  QString text(QAccessible::Text kind) const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;

protected:
  // Null when the control has no node or the window is closed.
  const viewkit::PresentationNode* node() const;
  ControlWidget& control() const { return control_; }

private:
  AccessibleRoot* root() const;
  AccessibleTree* tree() const;
  QString actionName() const;
  bool hasContextMenu() const;

  ControlWidget& control_;
};

}  // namespace qt
