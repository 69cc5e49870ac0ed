#pragma once

#include "viewkit/PresentationNode.hpp"

#include <QAccessible>
#include <QPoint>

namespace qt {

class AccessibleTree;

// The parts of Qt's accessibility that painted nodes, controls and windows have in common.

QAccessible::Role roleOf(viewkit::Role role);
QString toldText(const viewkit::Accessibility& told, QAccessible::Text kind);
void addTold(QAccessible::State& state, const viewkit::Accessibility& told);

// Children are the nodes below that are told.
QAccessibleInterface* childOf(AccessibleTree& tree, const viewkit::PresentationNode& node,
                              int index);
int indexIn(AccessibleTree& tree, const viewkit::PresentationNode& node,
            const QAccessibleInterface* child);
// Where they overlap, the last is seen.
QAccessibleInterface* childUnder(AccessibleTree& tree, const viewkit::PresentationNode& node,
                                 QPoint onScreen);

}  // namespace qt
