#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVDependencies/QEVAppDelegateProvider.hpp"
#include "QEVSettings/QEVSettingsView.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "headless/Window.hpp"
#include "support/RecordingPreferencesStore.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
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

// Opens the whole settings window without a screen, in English, over stores in memory.
class SettingsWindowTest : public testing::Test {
protected:
  using Tabs = QEVSettingsView::Tabs;

  SettingsWindowTest();
  ~SettingsWindowTest() override;

  QEVSettingsView settingsView(Tabs tab, std::optional<viewkit::View> proxyTab = std::nullopt) const;
  headless::Window& open(Tabs tab, std::optional<viewkit::View> proxyTab = std::nullopt);
  void close() { window_.reset(); }

  // The rectangles that are tinted because the pointer is over them.
  static std::vector<viewkit::Rect> tints(const headless::Window& window);

  support::RecordingPreferencesStore store;
  support::RecordingPreferencesStore updaterStore;
  std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>();
  std::shared_ptr<FixedInterfaces> interfaces = std::make_shared<FixedInterfaces>();
  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> captureModel;
  std::shared_ptr<UpdaterViewModel> updater;

private:
  std::unique_ptr<headless::Window> window_;
};

}  // namespace QEVSettings
