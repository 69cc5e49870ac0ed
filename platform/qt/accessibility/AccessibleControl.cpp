#include "accessibility/AccessibleControl.hpp"

#include "accessibility/AccessibleTree.hpp"
#include "accessibility/told.hpp"
#include "controls/ControlWidget.hpp"
#include "mirror/Mirror.hpp"

#include <QAbstractButton>

namespace qt {

namespace {

QString labelsBelow(const viewkit::PresentationNode& node) {
  QStringList labels;
  for (const viewkit::PresentationNode* child : AccessibleTree::toldBelow(node)) {
    labels.append(toldText(child->accessibility, QAccessible::Name));
  }
  labels.removeAll(QString());
  return labels.join(' ');
}

}  // namespace

AccessibleControl::AccessibleControl(ControlWidget& control)
    : QAccessibleWidget(&control.widget()), control_(control) {}

const viewkit::PresentationNode* AccessibleControl::node() const { return control_.node(); }

AccessibleTree& AccessibleControl::tree() const { return control_.mirror().accessibles(); }

bool AccessibleControl::isValid() const { return QAccessibleWidget::isValid() && node(); }

QAccessibleInterface* AccessibleControl::parent() const {
  return node() ? tree().parentOf(*node()) : QAccessibleWidget::parent();
}

QAccessibleInterface* AccessibleControl::child(int index) const {
  return node() ? childOf(tree(), *node(), index) : nullptr;
}

int AccessibleControl::childCount() const {
  return node() ? static_cast<int>(AccessibleTree::toldBelow(*node()).size()) : 0;
}

int AccessibleControl::indexOfChild(const QAccessibleInterface* child) const {
  return node() ? indexIn(tree(), *node(), child) : -1;
}

QAccessibleInterface* AccessibleControl::childAt(int x, int y) const {
  return node() ? childUnder(tree(), *node(), {x, y}) : nullptr;
}

QString AccessibleControl::text(QAccessible::Text kind) const {
  if (!node()) return {};
  const QString told = toldText(node()->accessibility, kind);
  // What is named by nothing else is named by what is in it.
  const bool isUnnamed =
      kind == QAccessible::Name && told.isEmpty() && actionName() == pressAction();
  return isUnnamed ? labelsBelow(*node()) : told;
}

QAccessible::Role AccessibleControl::role() const {
  return node() ? roleOf(node()->accessibility.role) : QAccessible::NoRole;
}

QAccessible::State AccessibleControl::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  if (!node()) return state;
  addTold(state, node()->accessibility);
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
  return names;
}

void AccessibleControl::doAction(const QString& name) {
  if (!name.isEmpty() && name == actionName()) {
    control_.performPress();
  } else {
    QAccessibleWidget::doAction(name);
  }
}

}  // namespace qt
