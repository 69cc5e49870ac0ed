// SPDX-License-Identifier: MIT
#pragma once

#include "QEVCoreComponents/QEVCaptureViewModel.hpp"
#include "QEVSettings/ActionHistory.hpp"
#include "QEVSettings/RecordingPreferences.hpp"
#include "QEVSettings/SettingWriter.hpp"
#include "QEVSettings/SettingsCatalogue.hpp"
#include "QEVSettings/SettingsReset.hpp"
#include "QEVSettings/StoredAppearance.hpp"
#include "QEVSettings/UpdaterViewModel.hpp"
#include "QEVSettings/preferences/PreferencesStore.hpp"
#include "commandline/WindowOptions.hpp"
#include "services/ProxyService.hpp"
#include "viewkit/Environment.hpp"
#include "viewkit/View.hpp"

#include <memory>

namespace zorvantine {

// Everything that settings windows share: making it migrates the store, loads the analyzers, and
// makes the models that a window shows. It outlives its windows. One per process, main thread.
class SettingsHost {
public:
  // The store outlives the host. Views are in the language that the options name.
  SettingsHost(const WindowOptions& options, QEVSettings::PreferencesStore& store);

  ~SettingsHost();
  SettingsHost(const SettingsHost&) = delete;
  SettingsHost& operator=(const SettingsHost&) = delete;

  // Makes the content of one window.
  viewkit::View settingsView(Tab tab) const;
  // The environment of these windows.
  viewkit::Environment environment() const;
  const std::shared_ptr<QEVSettings::UpdaterViewModel>& updater() const { return updater_; }
  // What the window can write.
  QEVSettings::SettingsCatalogue& catalogue() { return *catalogue_; }
  // Writes a setting as its page does.
  const std::shared_ptr<QEVSettings::SettingWriter>& writer() const { return writer_; }
  // What the user did in the windows, and what brings back defaults.
  const std::shared_ptr<QEVSettings::ActionHistory>& history() const { return history_; }
  const std::shared_ptr<QEVSettings::SettingsReset>& reset() const { return reset_; }

private:
  bool hasProxyTab_;
  // The windows and their models write through it.
  std::unique_ptr<QEVSettings::RecordingPreferences> recording_;
  std::shared_ptr<QEVSettings::SettingsCatalogue> catalogue_ =
      std::make_shared<QEVSettings::SettingsCatalogue>();
  std::shared_ptr<QEVSettings::StoredAppearance> delegate_;
  std::shared_ptr<QEVSettings::UpdaterViewModel> updater_;
  std::shared_ptr<QEVCoreComponents::QEVCaptureViewModel> capture_;
  std::shared_ptr<ProxyService> proxy_;
  std::shared_ptr<QEVSettings::SettingWriter> writer_;
  std::shared_ptr<QEVSettings::ActionHistory> history_;
  std::shared_ptr<QEVSettings::SettingsReset> reset_;
};

}  // namespace zorvantine
