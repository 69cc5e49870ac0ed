// SPDX-License-Identifier: MIT
#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessible>

namespace qt {

// Qt's accessible values of a node, the same for painted nodes and for controls.

QAccessible::Role accessibleRole(viewkit::Role role);
// Empty for kinds of text that nodes do not have.
QString accessibleText(const viewkit::Accessibility& accessibility, QAccessible::Text kind);
// Whether the value is told as the description, because the platform passes on the value of a
// numeric control only.
bool isValueDescription(viewkit::Role role);
// Sets in `state` whether the node is disabled, selectable and selected.
void addAccessibleState(QAccessible::State& state, const viewkit::Accessibility& accessibility);

}  // namespace qt
