// SPDX-License-Identifier: MIT
#include "window/EditMenu.hpp"

#include "foundation/Bundle.hpp"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QString>

#include <string>
#include <string_view>
#include <utility>

namespace zorvantine {

namespace {

QString localized(std::string_view key) {
  return QString::fromStdString(foundation::Bundle::mainBundle().localizedString(key));
}

// "&" would mark a key.
QString menuText(const std::string& title) {
  return QString::fromStdString(title).replace("&", "&&");
}

}  // namespace

EditMenu::EditMenu(QMenuBar& bar, std::function<void()> openSettings)
    : openSettings_(std::move(openSettings)) {
  QMenu* const menu = bar.addMenu(localized("&Edit"));
  const auto add = [&](const QString& title, const QKeySequence& key, auto command) {
    QAction* const action = menu->addAction(title);
    action->setShortcut(key);
    connect(action, &QAction::triggered, this, [this, command] {
      openSettings_();
      command();
    });
    return action;
  };
  undo_ = add({}, QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { history_->undo(); });
  redo_ = add({}, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), [this] { history_->redo(); });
  menu->addSeparator();
  resetPage_ = add(localized("Reset This Page…"), {}, [this] { reset_->askToResetPage(); });
  resetAll_ = add(localized("Reset All Settings…"), {}, [this] { reset_->askToResetAll(); });
  refresh();
}

void EditMenu::setCommands(std::shared_ptr<QEVSettings::ActionHistory> history,
                           std::shared_ptr<QEVSettings::SettingsReset> reset) {
  history_ = std::move(history);
  reset_ = std::move(reset);
  historyWillChange_ = history_ ? history_->objectWillChange().subscribe([this] { refreshLater(); })
                                : foundation::Subscription();
  refresh();
}

// The history announces a change before it happens.
void EditMenu::refreshLater() {
  QMetaObject::invokeMethod(
      this, [this] { refresh(); }, Qt::QueuedConnection);
}

void EditMenu::refresh() {
  undo_->setEnabled(history_ && history_->canUndo());
  redo_->setEnabled(history_ && history_->canRedo());
  if (history_) {
    undo_->setText(menuText(history_->undoTitle()));
    redo_->setText(menuText(history_->redoTitle()));
  }
  resetPage_->setEnabled(reset_ != nullptr);
  resetAll_->setEnabled(reset_ != nullptr);
}

}  // namespace zorvantine
