// SPDX-License-Identifier: MIT
#include "window/Updates.hpp"

#include "catalogue/HostSettings.hpp"
#include "commandline/version.hpp"
#include "foundation/Bundle.hpp"
#include "qt/EventLoopTimer.hpp"
#include "qt/HttpTransport.hpp"
#include "qt/UpdateDialog.hpp"
#include "sparkle/UpdaterConfiguration.hpp"

#include <QStandardPaths>
#include <QSysInfo>

#include <memory>
#include <string>
#include <string_view>

namespace zorvantine {

void useDesktopForUpdates(QEVSettings::PreferencesStore& store) {
  sparkle::UpdaterConfiguration configuration;
  configuration.feedAddress = store.stringForKey(kUpdateFeedKey).value_or("");
  configuration.publicKey = store.stringForKey(kUpdatePublicKey).value_or("");
  configuration.applicationVersion = versionText();
  configuration.profile = {.systemVersion = QSysInfo::prettyProductName().toStdString(),
                           .architecture = QSysInfo::currentCpuArchitecture().toStdString()};
  configuration.downloadFolder =
      QStandardPaths::writableLocation(QStandardPaths::CacheLocation).toStdString() + "/updates";
  configuration.store = &store;
  configuration.transport = std::make_shared<qt::HttpTransport>();
  configuration.timer = std::make_shared<qt::EventLoopTimer>();
  configuration.userDriver = std::make_shared<qt::UpdateDialog>(
      [](std::string_view key) { return foundation::Bundle::mainBundle().localizedString(key); });
  sparkle::UpdaterConfiguration::setStandard(std::move(configuration));
}

void forgetDesktopUpdates() { sparkle::UpdaterConfiguration::setStandard({}); }

}  // namespace zorvantine
