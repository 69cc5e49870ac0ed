#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessibleWidget>

namespace qt {

class AccessibleTree;
class ControlWidget;

// A control as assistive technology sees it: the widget that it is, with the name, the role and the
// place in the tree that its node has.
class AccessibleControl : public QAccessibleWidget {
public:
  explicit AccessibleControl(ControlWidget& control);

  bool isValid() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QString text(QAccessible::Text kind) const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;

protected:
  const viewkit::PresentationNode* node() const;
  ControlWidget& control() const { return control_; }

private:
  AccessibleTree& tree() const;
  QString actionName() const;

  ControlWidget& control_;
};

}  // namespace qt
