// SPDX-License-Identifier: MIT
#include "pages/SettingsHost.hpp"

#include "QEVSettings/ProxySettingsView.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/QEVSettingsView.hpp"
#include "analyzers/LoadAnalyzers.hpp"
#include "catalogue/HostSettings.hpp"
#include "foundation/Bundle.hpp"
#include "pages/Language.hpp"
#include "services/MachineInterfaces.hpp"
#include "sparkle/UpdaterConfiguration.hpp"

#include <optional>
#include <utility>

namespace zorvantine {

using foundation::Bundle;
using QEVSettings::QEVSettingsView;

namespace {

QEVSettingsView::Tabs tabOf(Tab tab) {
  switch (tab) {
    case Tab::general: break;
    case Tab::capture: return QEVSettingsView::Tabs::capture;
    case Tab::proxy: return QEVSettingsView::Tabs::proxy;
    case Tab::analyze: return QEVSettingsView::Tabs::analyze;
    case Tab::appearance: return QEVSettingsView::Tabs::appearance;
  }
  return QEVSettingsView::Tabs::general;
}

// The updater keeps its settings in the store of the configuration.
void useForUpdater(QEVSettings::PreferencesStore* store) {
  sparkle::UpdaterConfiguration configuration = sparkle::UpdaterConfiguration::standard();
  configuration.store = store;
  sparkle::UpdaterConfiguration::setStandard(std::move(configuration));
}

}  // namespace

SettingsHost::SettingsHost(const WindowOptions& options, QEVSettings::PreferencesStore& store)
    : hasProxyTab_(options.hasProxyTab),
      recording_(std::make_unique<QEVSettings::RecordingPreferences>(store)) {
  // Nothing may read the store in the form of an older release.
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(store);
  if (!options.language.empty()) Bundle::setPreferredLanguages({options.language});
  loadAnalyzers(options.syntheticAnalyzers, store);
  for (QEVSettings::PreferenceDescriptor& each : hostSettings()) catalogue_->add(std::move(each));
  delegate_ = std::make_shared<QEVSettings::StoredAppearance>(store);
  useForUpdater(recording_.get());
  updater_ = std::make_shared<QEVSettings::UpdaterViewModel>();
  capture_ = std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(
      *recording_, std::make_shared<MachineInterfaces>());
  proxy_ = std::make_shared<ProxyService>(*recording_);
  writer_ = std::make_shared<QEVSettings::SettingWriter>(
      *recording_,
      QEVSettings::SettingWriter::Doors{.appDelegate = delegate_, .updater = updater_});
  history_ = std::make_shared<QEVSettings::ActionHistory>(*recording_, writer_, catalogue_);
  reset_ = std::make_shared<QEVSettings::SettingsReset>(history_, catalogue_);
}

SettingsHost::~SettingsHost() { useForUpdater(nullptr); }

viewkit::View SettingsHost::settingsView(Tab tab) const {
  std::optional<viewkit::View> proxyTab;
  if (hasProxyTab_) proxyTab = QEVSettings::ProxySettingsView(proxy_);
  return QEVSettingsView(updater_, delegate_, capture_, tabOf(tab), std::move(proxyTab));
}

viewkit::Environment SettingsHost::environment() const {
  return {
      .defaultStore = *recording_,
      .layoutDirection = windowDirection(),
      .objects =
          viewkit::EnvironmentObjects().with(catalogue_).with(writer_).with(history_).with(reset_)};
}

}  // namespace zorvantine
