// SPDX-License-Identifier: MIT
#include "window/HistoryMenu.hpp"

#include "foundation/Bundle.hpp"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QShortcut>

#include <utility>

namespace zorvantine {

namespace {

QKeySequence keys() { return {Qt::CTRL | Qt::SHIFT | Qt::Key_H}; }

}  // namespace

void addRecentChanges(QMenu& menu, std::function<void()> open) {
  const std::string title = foundation::Bundle::mainBundle().localizedString("Recent Changes…");
  menu.addAction(QString::fromStdString(title), keys(), &menu, std::move(open));
}

void addRecentChangesKeys(QWidget& window, std::function<void()> open) {
  auto* const shortcut = new QShortcut(keys(), &window);
  QObject::connect(shortcut, &QShortcut::activated, &window, std::move(open));
}

}  // namespace zorvantine
