// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace QEVSettings {

// A delegate for hosts that leave the appearance to the settings: the application looks as the
// store says, from the moment the delegate is made, and also when another process changes the
// store.
//
//     auto appearance = std::make_shared<StoredAppearance>(store);
//     QEVSettingsView(updater, appearance, capture, QEVSettingsView::Tabs::general, std::nullopt)
//
// Main thread.
class StoredAppearance final : public QEVDependencies::QEVAppDelegateProvider {
public:
  // The store outlives the delegate.
  explicit StoredAppearance(PreferencesStore& store);

  void setupAppearanceFromUserDefaults() override;

private:
  PreferencesStore& store_;
  Subscription nameChanged_;
  Subscription useSystemChanged_;
};

}  // namespace QEVSettings
