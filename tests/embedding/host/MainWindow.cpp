// SPDX-License-Identifier: MIT
#include "MainWindow.hpp"

#include "QEVSettings/CheckForUpdatesView.hpp"
#include "QEVSettings/QEVSettingsView.hpp"
#include "QEVSettings/StorageNotices.hpp"
#include "QEVSettings/StoredAppearance.hpp"
#include "qt/Window.hpp"
#include "viewkit/ViewHost.hpp"

#include <QAction>
#include <QDialogButtonBox>
#include <QDockWidget>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace embedding {

namespace {

struct Interfaces final : QEVCoreComponents::NetworkInterfaces {
  std::vector<QEVCoreComponents::NetworkInterface> all() const override {
    return {{.name = "eth0", .addresses = {"192.0.2.7"}, .isUp = true}};
  }
};

constexpr int kPackets = 3;
constexpr int kColumns = 2;

}  // namespace

Models::Models(QEVSettings::PreferencesStore& store)
    : store(store),
      updater(std::make_shared<QEVSettings::UpdaterViewModel>()),
      delegate(std::make_shared<QEVSettings::StoredAppearance>(store)),
      capture(std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(
          store, std::make_shared<Interfaces>())) {}

PreferencesDialog::PreferencesDialog(Models& models, QWidget* parent) : QDialog(parent) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle("Preferences");
  settings_ = std::make_unique<qt::Window>(qt::WindowOptions{
      .environment = {.defaultStore = models.store},
      .root =
          QEVSettings::QEVSettingsView(models.updater, models.delegate, models.capture,
                                       QEVSettings::QEVSettingsView::Tabs::general, std::nullopt)});
  settings_->onCloseWithRefusedTexts([](const auto&) { return false; });

  auto* const pages = new QTabWidget(this);
  pages->addTab(new QLabel("Shortcuts of the host", pages), "Shortcuts");
  pages->addTab(&settings_->widget(), "Analyzer");
  pages->setCurrentIndex(1);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(pages);
  layout->addWidget(buttons);
}

PreferencesDialog::~PreferencesDialog() = default;

void PreferencesDialog::done(int result) {
  if (settings_->close()) QDialog::done(result);
}

MainWindow::MainWindow(QEVSettings::PreferencesStore& store) : models_(store) {
  auto* const packets = new QTableWidget(kPackets, kColumns, this);
  setCentralWidget(packets);

  updates_ = std::make_unique<qt::Window>(
      qt::WindowOptions{.environment = {.defaultStore = store},
                        .root = QEVSettings::CheckForUpdatesView(models_.updater)});
  auto* const dock = new QDockWidget("Updates", this);
  dock->setWidget(&updates_->widget());
  addDockWidget(Qt::RightDockWidgetArea, dock);

  QAction* const preferences = menuBar()->addMenu("Edit")->addAction("Preferences…");
  preferences->setShortcut(QKeySequence::Preferences);
  connect(preferences, &QAction::triggered, this, [this] { openPreferences(); });

  const auto tell = [this] {
    const QEVSettings::StorageNotices notices(models_.store);
    statusBar()->showMessage(QString::fromStdString(notices.problem().value_or("")));
  };
  storage_ = store.observeStorage(tell);
  tell();
}

MainWindow::~MainWindow() = default;

PreferencesDialog* MainWindow::openPreferences() {
  if (!dialog_) dialog_ = new PreferencesDialog(models_, this);
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
  return dialog_;
}

}  // namespace embedding
