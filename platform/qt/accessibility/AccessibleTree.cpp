#include "accessibility/AccessibleTree.hpp"

#include "accessibility/AccessibleNode.hpp"
#include "controls/ControlWidget.hpp"
#include "mirror/Mirror.hpp"
#include "paint/Fonts.hpp"

namespace qt {

namespace {

bool isTold(const viewkit::PresentationNode& node) {
  return node.accessibility.role != viewkit::Role::none;
}

const viewkit::PresentationNode* toldAbove(const viewkit::PresentationNode& node) {
  const viewkit::PresentationNode* above = node.parent;
  while (above && !isTold(*above)) above = above->parent;
  return above;
}

void notify(QAccessibleInterface* interface, QAccessible::Event type) {
  QAccessibleEvent event(interface, type);
  QAccessible::updateAccessibility(&event);
}

void notifyValue(QAccessibleInterface* interface, const std::string& value) {
  QAccessibleValueChangeEvent event(interface, text(value));
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

std::vector<const viewkit::PresentationNode*> AccessibleTree::toldBelow(
    const viewkit::PresentationNode& node) {
  std::vector<const viewkit::PresentationNode*> told;
  const auto collect = [&](const auto& self, const viewkit::PresentationNode& parent) -> void {
    for (const viewkit::PresentationNode* child : parent.children) {
      if (isTold(*child)) {
        told.push_back(child);
      } else {
        self(self, *child);
      }
    }
  };
  collect(collect, node);
  return told;
}

QAccessibleInterface* AccessibleTree::windowInterface() const {
  return QAccessible::queryAccessibleInterface(&mirror_.canvas());
}

QAccessibleInterface* AccessibleTree::interfaceOf(const viewkit::PresentationNode& node) {
  if (ControlWidget* control = mirror_.controlOf(node.id)) {
    return QAccessible::queryAccessibleInterface(&control->widget());
  }
  const auto known = interfaces_.find(node.id);
  if (known != interfaces_.end()) return QAccessible::accessibleInterface(known->second);
  auto* made = new AccessibleNode(*this, node.id);
  interfaces_.emplace(node.id, QAccessible::registerAccessibleInterface(made));
  return made;
}

QAccessibleInterface* AccessibleTree::parentOf(const viewkit::PresentationNode& node) {
  const viewkit::PresentationNode* above = toldAbove(node);
  return above ? interfaceOf(*above) : windowInterface();
}

void AccessibleTree::show(const viewkit::PresentationChanges& changes) {
  for (const viewkit::NodeId id : changes.removed) forget(id);
  for (const viewkit::PresentationNode* node : changes.changed) {
    if (isTold(*node)) announce(*node);
  }
}

void AccessibleTree::forgetControl(ControlWidget& control) {
  if (!control.isTold()) return;
  control.setTold(false);
  QAccessibleInterface* leaving = QAccessible::queryAccessibleInterface(&control.widget());
  notify(leaving, QAccessible::ObjectDestroyed);
  QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(leaving));
}

void AccessibleTree::announce(const viewkit::PresentationNode& node) {
  const viewkit::PresentationNode* above = toldAbove(node);
  const Told now{.accessibility = node.accessibility, .parent = above ? above->id : 0};
  const auto known = told_.find(node.id);
  if (known == told_.end()) {
    told_.emplace(node.id, now);
    if (QAccessible::isActive()) announceNew(node);
    return;
  }
  const viewkit::Accessibility before = known->second.accessibility;
  known->second = now;
  if (before == now.accessibility || !QAccessible::isActive()) return;
  QAccessibleInterface* interface = interfaceOf(node);
  const bool isRenamed = before.label != now.accessibility.label;
  if (isRenamed) notify(interface, QAccessible::NameChanged);
  if (before.help != now.accessibility.help) notify(interface, QAccessible::DescriptionChanged);
  if (before.value != now.accessibility.value) notifyValue(interface, now.accessibility.value);
  QAccessible::State changed;
  if (before.selected != now.accessibility.selected) changed.selected = true;
  if (before.enabled != now.accessibility.enabled) changed.disabled = true;
  if (before.value != now.accessibility.value && now.accessibility.role == viewkit::Role::toggle)
    changed.checked = true;
  if (changed.selected || changed.disabled || changed.checked) notifyState(interface, changed);
  if (isRenamed && now.accessibility.role == viewkit::Role::alert)
    notify(interface, QAccessible::Alert);
}

void AccessibleTree::announceNew(const viewkit::PresentationNode& node) {
  QAccessibleInterface* interface = interfaceOf(node);
  notify(interface, QAccessible::ObjectCreated);
  if (node.accessibility.role == viewkit::Role::alert) {
    notify(interface, QAccessible::ObjectShow);
    notify(interface, QAccessible::Alert);
  }
}

void AccessibleTree::forget(viewkit::NodeId id) {
  const auto told = told_.find(id);
  const viewkit::NodeId parent = told != told_.end() ? told->second.parent : 0;
  if (told != told_.end()) told_.erase(told);
  const auto found = interfaces_.find(id);
  if (found == interfaces_.end()) return;
  const viewkit::PresentationNode* above = parent == 0 ? nullptr : mirror_.host().node(parent);
  auto* leaving = static_cast<AccessibleNode*>(QAccessible::accessibleInterface(found->second));
  // Where the parent goes too, its own leaving says it all.
  if (parent == 0 || above) {
    leaving->leave(above ? interfaceOf(*above) : windowInterface());
    notify(leaving, QAccessible::ObjectDestroyed);
  }
  QAccessible::deleteAccessibleInterface(found->second);
  interfaces_.erase(found);
}

}  // namespace qt
