// SPDX-License-Identifier: MIT
#include "accessibility/accessibleValues.hpp"

#include "bridge/Strings.hpp"

namespace qt {

QAccessible::Role accessibleRole(viewkit::Role role) {
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
    case Role::comboBox: return QAccessible::ComboBox;
    case Role::scrollArea: return QAccessible::Pane;
    case Role::list: return QAccessible::List;
    case Role::listItem: return QAccessible::ListItem;
  }
  return QAccessible::NoRole;
}

namespace {

QString helpOf(const viewkit::Accessibility& accessibility) {
  return accessibility.label.empty() || accessibility.label == accessibility.help
             ? QString()
             : toQString(accessibility.help);
}

QString descriptionOf(const viewkit::Accessibility& accessibility) {
  QString said = toQString(accessibility.problem);
  if (said.isEmpty() && isValueDescription(accessibility.role))
    said = toQString(accessibility.value);
  if (said.isEmpty()) said = helpOf(accessibility);
  if (!said.isEmpty() && !accessibility.note.empty()) said += QLatin1String(", ");
  return said + toQString(accessibility.note);
}

}  // namespace

QString accessibleText(const viewkit::Accessibility& accessibility, QAccessible::Text kind) {
  switch (kind) {
    case QAccessible::Name: return accessibleNameOf(accessibility);
    case QAccessible::Description: return descriptionOf(accessibility);
    case QAccessible::Help: return helpOf(accessibility);
    case QAccessible::Value: return toQString(accessibility.value);
    default: return {};
  }
}

bool isValueDescription(viewkit::Role role) {
  return role == viewkit::Role::menuButton || role == viewkit::Role::colorWell ||
         role == viewkit::Role::fontPicker;
}

void addAccessibleState(QAccessible::State& state, const viewkit::Accessibility& accessibility) {
  state.disabled = !accessibility.enabled;
  state.selectable = accessibility.selected.has_value();
  state.selected = accessibility.selected.value_or(false);
  state.invalid = !accessibility.problem.empty();
  state.expandable = accessibility.expanded.has_value();
  state.expanded = accessibility.expanded.value_or(false);
  state.collapsed = state.expandable && !state.expanded;
}

}  // namespace qt
