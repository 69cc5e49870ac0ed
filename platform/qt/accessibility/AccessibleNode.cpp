#include "accessibility/AccessibleNode.hpp"

#include "accessibility/AccessibleTree.hpp"
#include "accessibility/told.hpp"
#include "mirror/Mirror.hpp"

#include <QWindow>

namespace qt {

const viewkit::PresentationNode* AccessibleNode::node() const {
  return tree_.mirror().host().node(id_);
}

bool AccessibleNode::isValid() const { return leftParent_ || node(); }

QWindow* AccessibleNode::window() const { return tree_.mirror().canvas().windowHandle(); }

QAccessibleInterface* AccessibleNode::parent() const {
  if (leftParent_) return leftParent_;
  return node() ? tree_.parentOf(*node()) : nullptr;
}

QAccessibleInterface* AccessibleNode::child(int index) const {
  return node() ? childOf(tree_, *node(), index) : nullptr;
}

int AccessibleNode::childCount() const {
  return node() ? static_cast<int>(AccessibleTree::toldBelow(*node()).size()) : 0;
}

int AccessibleNode::indexOfChild(const QAccessibleInterface* child) const {
  return node() ? indexIn(tree_, *node(), child) : -1;
}

QAccessibleInterface* AccessibleNode::childAt(int x, int y) const {
  return node() ? childUnder(tree_, *node(), {x, y}) : nullptr;
}

QString AccessibleNode::text(QAccessible::Text kind) const {
  return node() ? toldText(node()->accessibility, kind) : QString();
}

void AccessibleNode::setText(QAccessible::Text /*kind*/, const QString& /*text*/) {}

QRect AccessibleNode::rect() const {
  if (!node()) return {};
  const Mirror::Place place = tree_.mirror().placeOf(*node());
  return {place.widget->mapToGlobal(place.rect.topLeft()).toPoint(), place.rect.size().toSize()};
}

QAccessible::Role AccessibleNode::role() const {
  return node() ? roleOf(node()->accessibility.role) : QAccessible::NoRole;
}

QAccessible::State AccessibleNode::state() const {
  QAccessible::State state;
  if (!node()) {
    state.invalid = true;
    return state;
  }
  const Mirror::Place place = tree_.mirror().placeOf(*node());
  state.readOnly = true;
  state.offscreen =
      !place.widget->isVisible() || !place.rect.toAlignedRect().intersects(place.widget->rect());
  state.invisible = !place.widget->isVisible();
  addTold(state, node()->accessibility);
  return state;
}

void* AccessibleNode::interface_cast(QAccessible::InterfaceType type) {
  const bool acts =
      type == QAccessible::ActionInterface && node() && node()->accessibility.pressable;
  return acts ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList AccessibleNode::actionNames() const {
  return {QAccessibleActionInterface::pressAction()};
}

void AccessibleNode::doAction(const QString& name) {
  if (name == QAccessibleActionInterface::pressAction()) tree_.mirror().host().press(id_);
}

QStringList AccessibleNode::keyBindingsForAction(const QString& /*name*/) const { return {}; }

}  // namespace qt
