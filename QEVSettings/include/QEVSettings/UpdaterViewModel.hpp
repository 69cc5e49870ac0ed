// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/KeyValueObservation.hpp"
#include "foundation/ObservableObject.hpp"
#include "sparkle/SPUStandardUpdaterController.hpp"

#include <array>
#include <memory>

namespace QEVSettings {

// The settings of the software updater as values that views can show and edit.
//
// The host creates one model and keeps it for the run of the application: the updater starts with
// it, in the standard configuration that the host has set. Main thread.
//
// The published values follow the updater. The model does not write them back: a view that changes
// one sets the new value at `updaterController().updater()`.
//
//     auto updater = std::make_shared<UpdaterViewModel>();
//     updater->checkForUpdates();
class UpdaterViewModel final : public foundation::ObservableObject {
public:
  UpdaterViewModel();

  sparkle::SPUStandardUpdaterController& updaterController() const { return *updaterController_; }

  // Whether a check can start now.
  foundation::Published<bool> canCheckForUpdates{*this, false};
  foundation::Published<bool> automaticallyChecksForUpdates{*this, false};
  foundation::Published<bool> automaticallyDownloadUpdates{*this, false};
  // Whether a check sends an anonymous system profile.
  foundation::Published<bool> sendSystemProfile{*this, false};

  // Starts a check on a later turn of the main queue, and returns at once. No check starts if the
  // model is destroyed before.
  void checkForUpdates();

private:
  std::shared_ptr<sparkle::SPUStandardUpdaterController> updaterController_;
  std::array<foundation::Subscription, 4> observations_;
};

}  // namespace QEVSettings
