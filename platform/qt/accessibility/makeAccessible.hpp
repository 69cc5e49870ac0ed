// SPDX-License-Identifier: MIT
#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace qt {

// A factory for QAccessible::installFactory: makes the accessible interfaces of our windows,
// controls and menus. Null for every other object, which keeps the interface that Qt makes.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object);

}  // namespace qt
