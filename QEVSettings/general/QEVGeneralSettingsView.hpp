// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVKonstantsKeys/Keys.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "general/AppearanceModeButton.hpp"
#include "general/QEVTimeZones.hpp"
#include "viewkit/ObservedObject.hpp"
#include "viewkit/StoredPreference.hpp"
#include "viewkit/View.hpp"

#include <memory>
#include <string>

namespace QEVSettings {

// The General tab: the appearance of the application, the packet time zone, and software updates.
class QEVGeneralSettingsView : public QEVTimeZones {
public:
  QEVGeneralSettingsView(std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate,
                         std::shared_ptr<UpdaterViewModel> updater);

  viewkit::View body() const;

private:
  AppearanceMode currentMode() const;
  void selectMode(AppearanceMode mode) const;

  viewkit::View appearanceSection() const;
  viewkit::View appearanceSwitch() const;
  viewkit::View modeButton(AppearanceMode mode, const std::string& label) const;

  viewkit::View timeZoneSection() const;
  viewkit::View timeZoneRow() const;
  viewkit::View timeZoneMenu() const;

  viewkit::View updatesSection() const;

  std::shared_ptr<QEVDependencies::QEVAppDelegateProvider> appDelegate_;
  viewkit::StoredPreference<std::string> selectedTimeZone_;
  viewkit::StoredPreference<std::string> appearanceName_{QEVKonstantsKeys::kAppearanceName};
  viewkit::StoredPreference<bool> appearanceUseSystem_{QEVKonstantsKeys::kAppearanceUseSystem};
  viewkit::StateObject<UpdaterViewModel> updaterViewModel_;
};

}  // namespace QEVSettings
