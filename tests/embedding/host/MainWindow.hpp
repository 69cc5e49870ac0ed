// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

#include <QDialog>
#include <QMainWindow>
#include <QPointer>

#include <memory>

namespace qt {
class Window;
}

namespace embedding {

// What the pages share for as long as the program runs.
struct Models {
  explicit Models(QEVSettings::PreferencesStore& store);

  QEVSettings::PreferencesStore& store;
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater;
  std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> delegate;
  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> capture;
};

// The host's own dialog, with the settings as its second page. It stays open while a text is
// refused.
class PreferencesDialog final : public QDialog {
public:
  PreferencesDialog(Models& models, QWidget* parent);
  ~PreferencesDialog() override;

  void done(int result) override;

private:
  std::unique_ptr<qt::Window> settings_;
};

// The host's main window: a table of packets, a dock with the button for updates, and a menu that
// opens the dialog. Its status bar says what there is to say of the preferences store.
class MainWindow final : public QMainWindow {
public:
  explicit MainWindow(QEVSettings::PreferencesStore& store);
  ~MainWindow() override;

  PreferencesDialog* openPreferences();

private:
  Models models_;
  std::unique_ptr<qt::Window> updates_;
  QPointer<PreferencesDialog> dialog_;
  QEVSettings::Subscription storage_;
};

}  // namespace embedding
