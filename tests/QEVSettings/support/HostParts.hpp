// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/QEVSettingsView.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "support/RecordingPreferencesStore.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace QEVSettings {

class RecordingDelegate final : public QEVDependencies::QEVAppDelegateProvider {
public:
  void setupAppearanceFromUserDefaults() override {
    ++calls;
    if (whenCalled) whenCalled();
  }
  int calls = 0;
  std::function<void()> whenCalled;
};

struct FixedInterfaces final : QEVCoreComponents::NetworkInterfaces {
  std::vector<QEVCoreComponents::NetworkInterface> all() const override { return interfaces; }
  std::vector<QEVCoreComponents::NetworkInterface> interfaces;
};

// What a host hands the settings window, in English and over stores in memory. Outlives the window.
struct HostParts {
  HostParts();
  ~HostParts();
  HostParts(const HostParts&) = delete;
  HostParts& operator=(const HostParts&) = delete;

  QEVSettingsView settingsView(QEVSettingsView::Tabs tab,
                               std::optional<viewkit::View> proxyTab = std::nullopt) const;

  support::RecordingPreferencesStore store;
  support::RecordingPreferencesStore updaterStore;
  std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();
  std::shared_ptr<FixedInterfaces> interfaces = std::make_shared<FixedInterfaces>();
  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureModel;
  std::shared_ptr<UpdaterViewModel> updater;
};

}  // namespace QEVSettings
