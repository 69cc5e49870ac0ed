// SPDX-License-Identifier: MIT
#include "accessibility/AccessibleTree.hpp"

#include "accessibility/AccessibleNode.hpp"
#include "accessibility/accessibleValues.hpp"
#include "bridge/MirroredTree.hpp"
#include "bridge/Strings.hpp"
#include "bridge/selectedItem.hpp"

#include <QWidget>

#include <algorithm>
#include <ranges>

namespace qt {

namespace {

bool isAccessible(const viewkit::PresentationNode& node) {
  return node.accessibility.role != viewkit::Role::none;
}

const viewkit::PresentationNode* accessibleAncestor(const viewkit::PresentationNode& node) {
  const viewkit::PresentationNode* ancestor = node.parent;
  while (ancestor && !isAccessible(*ancestor)) ancestor = ancestor->parent;
  return ancestor;
}

void notify(QAccessibleInterface* interface, QAccessible::Event type) {
  QAccessibleEvent event(interface, type);
  QAccessible::updateAccessibility(&event);
}

void notifyValue(QAccessibleInterface* interface, const std::string& value) {
  QAccessibleValueChangeEvent event(interface, toQString(value));
  QAccessible::updateAccessibility(&event);
}

void notifyState(QAccessibleInterface* interface, const QAccessible::State& changed) {
  QAccessibleStateChangeEvent event(interface, changed);
  QAccessible::updateAccessibility(&event);
}

}  // namespace

AccessibleTree::~AccessibleTree() {
  for (const auto& [node, id] : interfaces_) QAccessible::deleteAccessibleInterface(id);
}

const viewkit::PresentationNode& AccessibleTree::rootNode() const {
  return tree_.host().presentation();
}

std::vector<const viewkit::PresentationNode*> AccessibleTree::childNodes(
    const viewkit::PresentationNode& node) {
  std::vector<const viewkit::PresentationNode*> children;
  const auto collect = [&](const auto& self, const viewkit::PresentationNode& parent) -> void {
    for (const viewkit::PresentationNode* child : parent.children) {
      if (isAccessible(*child)) {
        children.push_back(child);
      } else {
        self(self, *child);
      }
    }
  };
  collect(collect, node);
  return children;
}

int AccessibleTree::childCount(const viewkit::PresentationNode& node) {
  return static_cast<int>(childNodes(node).size());
}

QAccessibleInterface* AccessibleTree::childOf(const viewkit::PresentationNode& node, int index) {
  const auto children = childNodes(node);
  const bool exists = index >= 0 && index < static_cast<int>(children.size());
  return exists ? interfaceOf(*children[static_cast<size_t>(index)]) : nullptr;
}

int AccessibleTree::indexIn(const viewkit::PresentationNode& node,
                            const QAccessibleInterface* child) {
  const auto children = childNodes(node);
  const auto found =
      std::ranges::find_if(children, [&](const auto* each) { return interfaceOf(*each) == child; });
  return found != children.end() ? static_cast<int>(found - children.begin()) : -1;
}

QAccessibleInterface* AccessibleTree::childAt(const viewkit::PresentationNode& node,
                                              QPoint onScreen) {
  const auto children = childNodes(node);
  for (const auto* child : std::views::reverse(children)) {
    QAccessibleInterface* interface = interfaceOf(*child);
    if (interface && interface->rect().contains(onScreen)) return interface;
  }
  return nullptr;
}

QAccessibleInterface* AccessibleTree::windowInterface() const {
  return QAccessible::queryAccessibleInterface(&tree_.canvas());
}

QAccessibleInterface* AccessibleTree::interfaceOf(const viewkit::PresentationNode& node) {
  if (QWidget* widget = tree_.widgetOf(node.id))
    return QAccessible::queryAccessibleInterface(widget);
  const auto known = interfaces_.find(node.id);
  if (known != interfaces_.end()) return QAccessible::accessibleInterface(known->second);
  auto* made = new AccessibleNode(*this, node.id);
  interfaces_.emplace(node.id, QAccessible::registerAccessibleInterface(made));
  return made;
}

QAccessibleInterface* AccessibleTree::parentOf(const viewkit::PresentationNode& node) {
  const viewkit::PresentationNode* ancestor = accessibleAncestor(node);
  return ancestor ? interfaceOf(*ancestor) : windowInterface();
}

void AccessibleTree::show(const viewkit::PresentationChanges& changes) {
  for (const viewkit::NodeId id : changes.removed) forget(id);
  for (const viewkit::PresentationNode* node : changes.changed) {
    if (isAccessible(*node)) announce(*node);
  }
}

void AccessibleTree::announce(const viewkit::PresentationNode& node) {
  const viewkit::PresentationNode* ancestor = accessibleAncestor(node);
  const Announced now{.accessibility = node.accessibility, .parent = ancestor ? ancestor->id : 0};
  const auto known = announced_.find(node.id);
  if (known == announced_.end()) {
    announced_.emplace(node.id, now);
    if (QAccessible::isActive()) announceNew(node);
    return;
  }
  const viewkit::Accessibility before = known->second.accessibility;
  known->second = now;
  if (before != now.accessibility && QAccessible::isActive()) announceDifference(node, before);
}

void AccessibleTree::announceNew(const viewkit::PresentationNode& node) {
  QAccessibleInterface* interface = interfaceOf(node);
  notify(interface, QAccessible::ObjectCreated);
  if (node.accessibility.role == viewkit::Role::alert) {
    notify(interface, QAccessible::ObjectShow);
    notify(interface, QAccessible::Alert);
  }
}

void AccessibleTree::announceDifference(const viewkit::PresentationNode& node,
                                        const viewkit::Accessibility& before) {
  const viewkit::Accessibility& now = node.accessibility;
  QAccessibleInterface* interface = interfaceOf(node);
  const bool isRenamed = before.label != now.label;
  if (isRenamed) notify(interface, QAccessible::NameChanged);
  if (before.value != now.value) notifyValue(interface, now.value);
  const bool isDescribedAnew = before.value != now.value && isValueDescription(now.role);
  if (isDescribedAnew || before.help != now.help || before.problem != now.problem ||
      before.note != now.note)
    notify(interface, QAccessible::DescriptionChanged);
  QAccessible::State changed;
  if (before.selected != now.selected) changed.selected = true;
  if (before.enabled != now.enabled) changed.disabled = true;
  if (before.expanded != now.expanded) changed.expanded = true;
  if (before.problem.empty() != now.problem.empty()) changed.invalid = true;
  if (before.value != now.value && now.role == viewkit::Role::toggle) changed.checked = true;
  if (changed.selected || changed.disabled || changed.checked || changed.invalid ||
      changed.expanded)
    notifyState(interface, changed);
  if (changed.selected) announceSelection(node);
  if (isRenamed && now.role == viewkit::Role::alert) notify(interface, QAccessible::Alert);
}

// The platform hears of a selection by an event of its own, and of the item that the keyboard is on
// by a focus within the list.
void AccessibleTree::announceSelection(const viewkit::PresentationNode& item) {
  const viewkit::PresentationNode* list = accessibleAncestor(item);
  if (!list || list->accessibility.role != viewkit::Role::list) return;
  const bool isSelected = item.accessibility.selected.value_or(false);
  notify(interfaceOf(item), isSelected ? QAccessible::Selection : QAccessible::SelectionRemove);
  if (!isSelected) return;
  notify(interfaceOf(*list), QAccessible::SelectionWithin);
  if (isFocusedItem(item)) notify(interfaceOf(item), QAccessible::Focus);
}

bool AccessibleTree::isFocusedItem(const viewkit::PresentationNode& node) const {
  if (!node.accessibility.selected.value_or(false)) return false;
  const viewkit::PresentationNode* list = accessibleAncestor(node);
  const QWidget* widget =
      list && list->accessibility.role == viewkit::Role::list ? tree_.widgetOf(list->id) : nullptr;
  return widget && widget->hasFocus();
}

QAccessibleInterface* AccessibleTree::selectedItemOf(const viewkit::PresentationNode& list) {
  const viewkit::PresentationNode* item =
      list.accessibility.role == viewkit::Role::list ? selectedItemBelow(list) : nullptr;
  return item ? interfaceOf(*item) : nullptr;
}

void AccessibleTree::announceFocusIn(const viewkit::PresentationNode& list) {
  if (!QAccessible::isActive()) return;
  if (QAccessibleInterface* item = selectedItemOf(list)) notify(item, QAccessible::Focus);
}

void AccessibleTree::forget(viewkit::NodeId id) {
  const auto announced = announced_.find(id);
  const viewkit::NodeId parent = announced != announced_.end() ? announced->second.parent : 0;
  if (announced != announced_.end()) announced_.erase(announced);
  const auto found = interfaces_.find(id);
  if (found == interfaces_.end()) return;
  const viewkit::PresentationNode* ancestor = parent == 0 ? nullptr : tree_.host().node(parent);
  auto* leaving = static_cast<AccessibleNode*>(QAccessible::accessibleInterface(found->second));
  // A parent that was removed too announces the removal of the whole branch.
  if (parent == 0 || ancestor) {
    leaving->leave(ancestor ? interfaceOf(*ancestor) : windowInterface());
    notify(leaving, QAccessible::ObjectDestroyed);
  }
  QAccessible::deleteAccessibleInterface(found->second);
  interfaces_.erase(found);
}

}  // namespace qt
