// SPDX-License-Identifier: MIT
#include "SettingsHost.hpp"

#include "Language.hpp"
#include "MachineInterfaces.hpp"
#include "QEVSettings/ProxySettingsView.hpp"
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/QEVSettingsView.hpp"
#include "analyzers/LoadAnalyzers.hpp"
#include "catalogue/HostSettings.hpp"
#include "foundation/Bundle.hpp"

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

}  // namespace

SettingsHost::SettingsHost(const WindowOptions& options, QEVSettings::PreferencesStore& store)
    : hasProxyTab_(options.hasProxyTab), store_(store) {
  // Nothing may read the store in the form of an older release.
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(store);
  if (!options.language.empty()) Bundle::setPreferredLanguages({options.language});
  loadAnalyzers(options.syntheticAnalyzers, store);
  for (QEVSettings::PreferenceDescriptor& each : hostSettings()) catalogue_->add(std::move(each));
  delegate_ = std::make_shared<QEVSettings::StoredAppearance>(store);
  updater_ = std::make_shared<QEVSettings::UpdaterViewModel>();
  capture_ = std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(
      store, std::make_shared<MachineInterfaces>());
  proxy_ = std::make_shared<ProxyService>(store);
}

viewkit::View SettingsHost::settingsView(Tab tab) const {
  std::optional<viewkit::View> proxyTab;
  if (hasProxyTab_) proxyTab = QEVSettings::ProxySettingsView(proxy_);
  return QEVSettingsView(updater_, delegate_, capture_, tabOf(tab), std::move(proxyTab));
}

viewkit::Environment SettingsHost::environment() const {
  return {.defaultStore = store_,
          .layoutDirection = windowDirection(),
          .objects = viewkit::EnvironmentObjects().with(catalogue_)};
}

}  // namespace zorvantine
