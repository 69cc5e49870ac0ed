#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessible>

namespace qt {

class AccessibleTree;

// A painted node as assistive technology sees it.
class AccessibleNode : public QAccessibleInterface, public QAccessibleActionInterface {
public:
  AccessibleNode(AccessibleTree& tree, viewkit::NodeId id) : tree_(tree), id_(id) {}

  // The node is gone, and this is the last that is heard of it.
  void leave(QAccessibleInterface* parent) { leftParent_ = parent; }

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
  QAccessibleInterface* leftParent_ = nullptr;
};

}  // namespace qt
