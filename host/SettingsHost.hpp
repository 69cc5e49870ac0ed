#pragma once

#include "ProxyService.hpp"
#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVSettings/StoredAppearance.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "commandline/WindowOptions.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/View.hpp"

#include <memory>

namespace zorvantine {

// The launched application, as far as its settings window needs it: the store is up to date, the
// analyzers are loaded, and everything that the window shows and does not own is there. Windows
// come and go; this stays. One a process, on the main thread.
class SettingsHost {
public:
  // The store outlives the host. Views speak the language of the options.
  SettingsHost(const WindowOptions& options, QEVSettings::PreferencesStore& store);

  // The window's content, new for each window.
  viewkit::View settingsView(Tab tab) const;
  viewkit::Environment environment() const;
  const std::shared_ptr<QEVSettings::UpdaterViewModel>& updater() const { return updater_; }

private:
  bool hasProxyTab_;
  QEVSettings::PreferencesStore& store_;
  std::shared_ptr<QEVSettings::StoredAppearance> delegate_;
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater_;
  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> capture_;
  std::shared_ptr<ProxyService> proxy_;
};

}  // namespace zorvantine
