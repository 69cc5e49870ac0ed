#include "accessibility/told.hpp"

#include "accessibility/AccessibleTree.hpp"
#include "paint/Fonts.hpp"

#include <algorithm>

namespace qt {

QAccessible::Role roleOf(viewkit::Role role) {
  using viewkit::Role;
  switch (role) {
    case Role::none: return QAccessible::NoRole;
    case Role::text: return QAccessible::StaticText;
    case Role::heading: return QAccessible::Heading;
    case Role::alert: return QAccessible::AlertMessage;
    case Role::image: return QAccessible::Graphic;
    case Role::group: return QAccessible::Grouping;
    case Role::button:
    case Role::helpButton:
    case Role::fontPicker:
    case Role::colorWell: return QAccessible::PushButton;
    case Role::tabList: return QAccessible::PageTabList;
    case Role::popover: return QAccessible::Dialog;
    case Role::toggle: return QAccessible::CheckBox;
    case Role::menuButton: return QAccessible::ButtonMenu;
    case Role::textField: return QAccessible::EditableText;
    case Role::scrollArea: return QAccessible::Pane;
    case Role::list: return QAccessible::List;
    case Role::listItem: return QAccessible::ListItem;
  }
  return QAccessible::NoRole;
}

QString toldText(const viewkit::Accessibility& told, QAccessible::Text kind) {
  switch (kind) {
    case QAccessible::Name: return text(told.label.empty() ? told.help : told.label);
    case QAccessible::Description:
    case QAccessible::Help:
      return told.label.empty() || told.label == told.help ? QString() : text(told.help);
    case QAccessible::Value: return text(told.value);
    default: return {};
  }
}

void addTold(QAccessible::State& state, const viewkit::Accessibility& told) {
  state.disabled = !told.enabled;
  state.selectable = told.selected.has_value();
  state.selected = told.selected.value_or(false);
}

QAccessibleInterface* childOf(AccessibleTree& tree, const viewkit::PresentationNode& node,
                              int index) {
  const auto children = AccessibleTree::toldBelow(node);
  const bool exists = index >= 0 && index < static_cast<int>(children.size());
  return exists ? tree.interfaceOf(*children[static_cast<size_t>(index)]) : nullptr;
}

int indexIn(AccessibleTree& tree, const viewkit::PresentationNode& node,
            const QAccessibleInterface* child) {
  const auto children = AccessibleTree::toldBelow(node);
  const auto found = std::ranges::find_if(
      children, [&](const auto* each) { return tree.interfaceOf(*each) == child; });
  return found != children.end() ? static_cast<int>(found - children.begin()) : -1;
}

QAccessibleInterface* childUnder(AccessibleTree& tree, const viewkit::PresentationNode& node,
                                 QPoint onScreen) {
  const auto children = AccessibleTree::toldBelow(node);
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    QAccessibleInterface* interface = tree.interfaceOf(**child);
    if (interface && interface->rect().contains(onScreen)) return interface;
  }
  return nullptr;
}

}  // namespace qt
