// SPDX-License-Identifier: MIT
#include "window/MainWindow.hpp"

#include "foundation/Bundle.hpp"
#include "window/HistoryMenu.hpp"
#include "window/PacketListView.hpp"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>

#include <string_view>
#include <utility>

namespace zorvantine {

namespace {

constexpr QSize kSize(900, 480);

QString localized(std::string_view key) {
  return QString::fromStdString(foundation::Bundle::mainBundle().localizedString(key));
}

}  // namespace

MainWindow::MainWindow(Parts parts) : parts_(std::move(parts)) {
  setWindowTitle(QStringLiteral("zorvantine"));
  addMenus();
  setCommands(std::exchange(parts_.history, nullptr), std::exchange(parts_.reset, nullptr));
  showContent(parts_.environment, parts_.updater);
  resize(kSize);
}

void MainWindow::showContent(viewkit::Environment environment,
                             std::shared_ptr<QEVSettings::UpdaterViewModel> updater) {
  parts_.environment = std::move(environment);
  parts_.updater = std::move(updater);
  content_ = std::make_unique<qt::Window>(qt::WindowOptions{
      .title = {},
      .environment = parts_.environment,
      .root = PacketListView{
          .model = std::make_shared<PacketListModel>(parts_.environment.defaultStore.get()),
          .updater = parts_.updater,
          .openSettings = parts_.openSettings}});
  setCentralWidget(&content_->widget());
}

void MainWindow::setCommands(std::shared_ptr<QEVSettings::ActionHistory> history,
                             std::shared_ptr<QEVSettings::SettingsReset> reset) {
  edit_->setCommands(std::move(history), std::move(reset));
}

void MainWindow::closeContent() {
  setCommands(nullptr, nullptr);
  content_->close();
  parts_.updater.reset();
  takeCentralWidget();
  content_.reset();
}

// The content owns its widget, so it is destroyed before the window that shows the widget.
MainWindow::~MainWindow() { content_.reset(); }

void MainWindow::addMenus() {
  QMenu* const file = menuBar()->addMenu(localized("&File"));
  file->addAction(localized("Settings…"), QKeySequence(Qt::CTRL | Qt::Key_Comma), this,
                  [this] { parts_.openSettings(); })
      ->setMenuRole(QAction::PreferencesRole);
  addRecentChanges(*file, [this] { parts_.openRecentChanges(); });
  QMenu* const profiles = file->addMenu(localized("Profile"));
  connect(profiles, &QMenu::aboutToShow, this, [this, profiles] { fillProfiles(*profiles); });
  file->addSeparator();
  file->addAction(localized("Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, [this] { close(); })
      ->setMenuRole(QAction::QuitRole);

  edit_ = std::make_unique<EditMenu>(*menuBar(), [this] { parts_.openSettings(); });

  QMenu* const help = menuBar()->addMenu(localized("&Help"));
  QAction* const check = help->addAction(localized("Check for Updates…"), this,
                                         [this] { parts_.updater->checkForUpdates(); });
  connect(help, &QMenu::aboutToShow, this,
          [this, check] { check->setEnabled(parts_.updater->canCheckForUpdates); });
}

void MainWindow::fillProfiles(QMenu& menu) {
  menu.clear();
  for (const std::string& name : parts_.profiles()) {
    // "&" would mark a key.
    QAction* const action = menu.addAction(QString::fromStdString(name).replace("&", "&&"));
    action->setCheckable(true);
    action->setChecked(name == profile_);
    // The menu is over before windows close.
    connect(
        action, &QAction::triggered, this, [this, name] { parts_.chooseProfile(name); },
        Qt::QueuedConnection);
  }
}

void MainWindow::closeEvent(QCloseEvent* event) {
  content_->close();
  event->accept();
  parts_.closed();
}

}  // namespace zorvantine
