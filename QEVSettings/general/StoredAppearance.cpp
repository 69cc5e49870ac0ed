// SPDX-License-Identifier: MIT
#include "QEVSettings/StoredAppearance.hpp"

#include "QEVKonstantsKeys/Keys.hpp"
#include "appkit/Application.hpp"

#include <string>
#include <string_view>

namespace QEVSettings {

using appkit::Appearance;
using QEVKonstantsKeys::kAppearanceName;
using QEVKonstantsKeys::kAppearanceUseSystem;

StoredAppearance::StoredAppearance(PreferencesStore& store) : store_(store) {
  const auto follow = [this](std::string_view) { setupAppearanceFromUserDefaults(); };
  nameChanged_ = store_.observe(kAppearanceName.name, follow);
  useSystemChanged_ = store_.observe(kAppearanceUseSystem.name, follow);
  setupAppearanceFromUserDefaults();
}

void StoredAppearance::setupAppearanceFromUserDefaults() {
  auto& application = appkit::Application::sharedApplication();
  if (store_.boolForKey(kAppearanceUseSystem.name)) {
    application.setAppearance(std::nullopt);
    return;
  }
  // An unknown name counts as the default, which is dark.
  const std::string name =
      store_.stringForKey(kAppearanceName.name).value_or(kAppearanceName.defaultValue);
  application.setAppearance(name == QEVKonstantsKeys::kAppearanceNameAqua ? Appearance::light
                                                                          : Appearance::dark);
}

}  // namespace QEVSettings
