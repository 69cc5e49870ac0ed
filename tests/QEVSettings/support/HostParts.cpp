// SPDX-License-Identifier: MIT
#include "HostParts.hpp"

#include "foundation/Bundle.hpp"

#include <utility>

namespace QEVSettings {

HostParts::HostParts() {
  foundation::Bundle::setPreferredLanguages({"en"});
  sparkle::UpdaterConfiguration configuration;
  configuration.store = &updaterStore;
  sparkle::UpdaterConfiguration::setStandard(configuration);
  captureModel =
      std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(store.underneath(), interfaces);
  updater = std::make_shared<UpdaterViewModel>();
}

HostParts::~HostParts() {
  updater.reset();
  sparkle::UpdaterConfiguration::setStandard({});
}

QEVSettingsView HostParts::settingsView(QEVSettingsView::Tabs tab,
                                        std::optional<viewkit::View> proxyTab) const {
  return {updater, delegate, captureModel, tab, std::move(proxyTab)};
}

}  // namespace QEVSettings
