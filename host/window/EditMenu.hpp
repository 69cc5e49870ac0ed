// SPDX-License-Identifier: MIT
#pragma once

#include "QEVSettings/ActionHistory.hpp"
#include "QEVSettings/SettingsReset.hpp"
#include "foundation/ObservableObject.hpp"

#include <QObject>

#include <functional>
#include <memory>

class QAction;
class QMenuBar;

namespace zorvantine {

// The Edit menu: undo and redo of what was done in the settings window, with the name of the
// setting, and the resets. Each command opens the settings window, which shows what changed and
// asks what has to be asked.
class EditMenu final : public QObject {
public:
  // The bar outlives the menu.
  EditMenu(QMenuBar& bar, std::function<void()> openSettings);

  // What the commands work on. Null before the settings of a profile are closed.
  void setCommands(std::shared_ptr<QEVSettings::ActionHistory> history,
                   std::shared_ptr<QEVSettings::SettingsReset> reset);

private:
  void refresh();
  void refreshLater();

  std::function<void()> openSettings_;
  std::shared_ptr<QEVSettings::ActionHistory> history_;
  std::shared_ptr<QEVSettings::SettingsReset> reset_;
  foundation::Subscription historyWillChange_;
  QAction* undo_;
  QAction* redo_;
  QAction* resetPage_;
  QAction* resetAll_;
};

}  // namespace zorvantine
