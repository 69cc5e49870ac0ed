// SPDX-License-Identifier: MIT
#include "accessibility/AccessibleControl.hpp"

#include "accessibility/AccessibleRoot.hpp"
#include "accessibility/AccessibleTree.hpp"
#include "accessibility/accessibleValues.hpp"
#include "bridge/MirroredTree.hpp"
#include "bridge/Strings.hpp"
#include "controls/ControlWidget.hpp"

#include <QAbstractButton>

namespace qt {

namespace {

QString labelsBelow(const viewkit::PresentationNode& node) {
  QStringList labels;
  for (const viewkit::PresentationNode* child : AccessibleTree::childNodes(node)) {
    labels.append(accessibleText(child->accessibility, QAccessible::Name));
  }
  labels.removeAll(QString());
  return labels.join(' ');
}

}  // namespace

AccessibleControl::AccessibleControl(ControlWidget& control)
    : QAccessibleWidget(&control.widget()), control_(control) {}

const viewkit::PresentationNode* AccessibleControl::node() const {
  return tree() ? control_.node() : nullptr;
}

AccessibleRoot* AccessibleControl::root() const {
  return control_.node() ? dynamic_cast<AccessibleRoot*>(&control_.tree().canvas()) : nullptr;
}

AccessibleTree* AccessibleControl::tree() const {
  return root() ? root()->accessibleTree() : nullptr;
}

bool AccessibleControl::hasContextMenu() const {
  return node() && control_.tree().host().hasContextMenu(node()->id);
}

bool AccessibleControl::isValid() const { return QAccessibleWidget::isValid() && node(); }

QAccessibleInterface* AccessibleControl::parent() const {
  return node() ? tree()->parentOf(*node()) : QAccessibleWidget::parent();
}

QAccessibleInterface* AccessibleControl::child(int index) const {
  return node() ? tree()->childOf(*node(), index) : nullptr;
}

int AccessibleControl::childCount() const {
  return node() ? AccessibleTree::childCount(*node()) : 0;
}

int AccessibleControl::indexOfChild(const QAccessibleInterface* child) const {
  return node() ? tree()->indexIn(*node(), child) : -1;
}

QAccessibleInterface* AccessibleControl::childAt(int x, int y) const {
  return node() ? tree()->childAt(*node(), {x, y}) : nullptr;
}

QAccessibleInterface* AccessibleControl::focusChild() const {
  QAccessibleInterface* item = node() ? tree()->selectedItemOf(*node()) : nullptr;
  return item && widget()->hasFocus() ? item : QAccessibleWidget::focusChild();
}

QString AccessibleControl::text(QAccessible::Text kind) const {
  if (!node()) return {};
  const QString own = accessibleText(node()->accessibility, kind);
  // A button without a name of its own is named after its children.
  const bool isUnnamed =
      kind == QAccessible::Name && own.isEmpty() && actionName() == pressAction();
  return isUnnamed ? labelsBelow(*node()) : own;
}

QAccessible::Role AccessibleControl::role() const {
  return node() ? accessibleRole(node()->accessibility.role) : QAccessible::NoRole;
}

QAccessible::State AccessibleControl::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  if (!node()) return state;
  addAccessibleState(state, node()->accessibility);
  if (const auto* toggle = std::get_if<viewkit::ToggleControl>(node()->control())) {
    state.checkable = true;
    state.checked = toggle->isOn;
  }
  state.hasPopup = std::holds_alternative<viewkit::MenuControl>(*node()->control());
  return state;
}

QString AccessibleControl::actionName() const {
  if (!node()) return {};
  if (std::holds_alternative<viewkit::ToggleControl>(*node()->control())) return toggleAction();
  if (std::holds_alternative<viewkit::MenuControl>(*node()->control())) return showMenuAction();
  return dynamic_cast<QAbstractButton*>(&control_.widget()) ? pressAction() : QString();
}

QStringList AccessibleControl::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  const QString own = actionName();
  if (!own.isEmpty() && widget()->isEnabled()) names.prepend(own);
  if (own != showMenuAction() && hasContextMenu()) names.append(showMenuAction());
  return names;
}

void AccessibleControl::doAction(const QString& name) {
  if (!name.isEmpty() && name == actionName()) {
    control_.performPress();
  } else if (name == showMenuAction() && hasContextMenu()) {
    root()->openContextMenu(node()->id);
  } else {
    QAccessibleWidget::doAction(name);
  }
}

}  // namespace qt
