#pragma once

#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"

namespace zorvantine {

// Gives the application the appearance that the store names: when the delegate is made, when the
// settings window asks for it, and when another process changes the store. Main thread.
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
