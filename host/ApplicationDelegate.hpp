#pragma once

#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace zorvantine {

// The host's answer to what the settings ask of it: the application looks as the store says, from
// the moment the delegate is made, and also when another process changes what the store says. Main
// thread.
class ApplicationDelegate final : public QEVDependencies::QEVAppDelegateProvider {
public:
  // The store outlives the delegate.
  explicit ApplicationDelegate(QEVSettings::PreferencesStore& store);

  void setupAppearanceFromUserDefaults() override;

private:
  QEVSettings::PreferencesStore& store_;
  QEVSettings::Subscription nameChanged_;
  QEVSettings::Subscription useSystemChanged_;
};

}  // namespace zorvantine
