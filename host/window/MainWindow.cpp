#include "window/MainWindow.hpp"

#include "foundation/Bundle.hpp"
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
  content_ = std::make_unique<qt::Window>(qt::WindowOptions{
      .title = {},
      .environment = parts_.environment,
      .root = PacketListView{
          .model = std::make_shared<PacketListModel>(parts_.environment.defaultStore.get()),
          .updater = parts_.updater,
          .openSettings = parts_.openSettings}});
  setCentralWidget(&content_->widget());
  resize(kSize);
}

// The content owns its widget, so it is destroyed before the window that shows the widget.
MainWindow::~MainWindow() { content_.reset(); }

void MainWindow::addMenus() {
  QMenu* const file = menuBar()->addMenu(localized("&File"));
  file->addAction(localized("Settings…"), QKeySequence(Qt::CTRL | Qt::Key_Comma), this,
                  [this] { parts_.openSettings(); })
      ->setMenuRole(QAction::PreferencesRole);
  file->addSeparator();
  file->addAction(localized("Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, [this] { close(); })
      ->setMenuRole(QAction::QuitRole);

  QMenu* const help = menuBar()->addMenu(localized("&Help"));
  QAction* const check = help->addAction(localized("Check for Updates…"), this,
                                         [this] { parts_.updater->checkForUpdates(); });
  connect(help, &QMenu::aboutToShow, this,
          [this, check] { check->setEnabled(parts_.updater->canCheckForUpdates); });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  content_->close();
  event->accept();
  parts_.closed();
}

}  // namespace zorvantine
