// SPDX-License-Identifier: MIT
#include "accessibility/AccessibleNode.hpp"

#include "accessibility/AccessibleRoot.hpp"
#include "accessibility/AccessibleTree.hpp"
#include "accessibility/accessibleValues.hpp"
#include "bridge/MirroredTree.hpp"

#include <QWidget>
#include <QWindow>

namespace qt {

const viewkit::PresentationNode* AccessibleNode::node() const {
  return tree_.tree().host().node(id_);
}

bool AccessibleNode::isValid() const { return formerParent_ || node(); }

QWindow* AccessibleNode::window() const { return tree_.tree().canvas().windowHandle(); }

QAccessibleInterface* AccessibleNode::parent() const {
  if (formerParent_) return formerParent_;
  return node() ? tree_.parentOf(*node()) : nullptr;
}

QAccessibleInterface* AccessibleNode::child(int index) const {
  return node() ? tree_.childOf(*node(), index) : nullptr;
}

int AccessibleNode::childCount() const { return node() ? AccessibleTree::childCount(*node()) : 0; }

int AccessibleNode::indexOfChild(const QAccessibleInterface* child) const {
  return node() ? tree_.indexIn(*node(), child) : -1;
}

QAccessibleInterface* AccessibleNode::childAt(int x, int y) const {
  return node() ? tree_.childAt(*node(), {x, y}) : nullptr;
}

QString AccessibleNode::text(QAccessible::Text kind) const {
  return node() ? accessibleText(node()->accessibility, kind) : QString();
}

void AccessibleNode::setText(QAccessible::Text /*kind*/, const QString& /*text*/) {}

QRect AccessibleNode::rect() const {
  if (!node()) return {};
  const MirroredTree::Place place = tree_.tree().placeOf(*node());
  return {place.widget->mapToGlobal(place.rect.topLeft()).toPoint(), place.rect.size().toSize()};
}

QAccessible::Role AccessibleNode::role() const {
  return node() ? accessibleRole(node()->accessibility.role) : QAccessible::NoRole;
}

QAccessible::State AccessibleNode::state() const {
  QAccessible::State state;
  if (!node()) {
    state.invalid = true;
    return state;
  }
  const MirroredTree::Place place = tree_.tree().placeOf(*node());
  state.readOnly = true;
  state.offscreen =
      !place.widget->isVisible() || !place.rect.toAlignedRect().intersects(place.widget->rect());
  state.invisible = !place.widget->isVisible();
  addAccessibleState(state, node()->accessibility);
  state.focusable = state.selectable;
  state.focused = tree_.isFocusedItem(*node());
  return state;
}

void* AccessibleNode::interface_cast(QAccessible::InterfaceType type) {
  const bool acts = type == QAccessible::ActionInterface && !actionNames().isEmpty();
  return acts ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleNode::actionNames() const {
  QStringList names;
  if (!node()) return names;
  if (node()->accessibility.pressable) names.append(QAccessibleActionInterface::pressAction());
  if (tree_.tree().host().hasContextMenu(id_))
    names.append(QAccessibleActionInterface::showMenuAction());
  return names;
}

void AccessibleNode::doAction(const QString& name) {
  if (name == QAccessibleActionInterface::pressAction()) tree_.tree().host().press(id_);
  auto* root = dynamic_cast<AccessibleRoot*>(&tree_.tree().canvas());
  if (root && name == QAccessibleActionInterface::showMenuAction()) root->openContextMenu(id_);
}

QStringList AccessibleNode::keyBindingsForAction(const QString& /*name*/) const { return {}; }

}  // namespace qt
