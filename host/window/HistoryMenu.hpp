// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QMenu;
class QWidget;

namespace zorvantine {

// Adds the entry "Recent Changes…" to a menu. `open` opens the window of recent changes.
void addRecentChanges(QMenu& menu, std::function<void()> open);

// Opens the window of recent changes with the keys of that entry, in a window without the menu.
void addRecentChangesKeys(QWidget& window, std::function<void()> open);

}  // namespace zorvantine
