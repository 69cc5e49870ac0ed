#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace qt {

// Qt's hook for interfaces: one for windows and controls of ours, nothing for what Qt knows better.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object);

}  // namespace qt
