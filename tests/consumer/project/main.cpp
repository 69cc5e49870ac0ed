// SPDX-License-Identifier: MIT
#include "QEVSettings/QEVPreferencesMigration.hpp"
#include "QEVSettings/QEVSettingsView.hpp"
#include "foundation/Bundle.hpp"
#include "foundation/UserDefaults.hpp"
#include "headless/Window.hpp"

#include <iostream>
#include <memory>

namespace {

struct Delegate final : QEVDependencies::QEVAppDelegateProvider {
  void setupAppearanceFromUserDefaults() override {}
};

struct NoInterfaces final : QEVCoreComponents::NetworkInterfaces {
  std::vector<QEVCoreComponents::NetworkInterface> all() const override { return {}; }
};

}  // namespace

// Opens the settings in German, so that the string tables are needed, and says which pages there
// are.
int main() {
  foundation::Bundle::setPreferredLanguages({"de"});
  const auto store = foundation::UserDefaults::inMemory();
  QEVSettings::QEVPreferencesMigration::migrateIfNeeded(*store);

  const QEVSettings::QEVSettingsView settings(
      std::make_shared<QEVSettings::UpdaterViewModel>(), std::make_shared<Delegate>(),
      std::make_shared<QEVCoreComponents::QEVCaptureViewModel>(*store,
                                                               std::make_shared<NoInterfaces>()),
      QEVSettings::QEVSettingsView::Tabs::appearance, std::nullopt);
  const headless::Window window(settings, {.defaultStore = *store});
  std::cout << headless::textDescription(window.describe());
}
