// SPDX-License-Identifier: MIT
#include "MainWindow.hpp"

#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/preferences/HostIdentity.hpp"
#include "foundation/UserDefaults.hpp"
#include "qt/Application.hpp"

#include <QApplication>

int main(int argc, char** argv) {
  QEVSettings::HostIdentity::set(
      {.id = "packet-viewer", .displayName = "Packet Viewer", .version = "2.0"});
  const QApplication application(argc, argv);
  const qt::Application settings;
  auto& store = foundation::UserDefaults::standardUserDefaults();
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(store);
  embedding::MainWindow window(store);
  window.show();
  window.openPreferences();
  return QApplication::exec();
}
