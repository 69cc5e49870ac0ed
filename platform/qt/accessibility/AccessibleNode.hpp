// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessible>

namespace qt {

class AccessibleTree;

// The accessible interface of a painted node.
class AccessibleNode : public QAccessibleInterface, public QAccessibleActionInterface {
public:
  AccessibleNode(AccessibleTree& tree, viewkit::NodeId id) : tree_(tree), id_(id) {}

  // Called when the node was removed, before that is announced: the interface stays valid, below
  // the former parent, until it is deleted.
  void leave(QAccessibleInterface* parent) { formerParent_ = parent; }

  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int index) const override;
  int childCount() const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QString text(QAccessible::Text kind) const override;
  void setText(QAccessible::Text kind, const QString& text) override;
  QRect rect() const override;
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& name) const override;

private:
  const viewkit::PresentationNode* node() const;

  AccessibleTree& tree_;
  viewkit::NodeId id_;
  QAccessibleInterface* formerParent_ = nullptr;
};

}  // namespace qt
