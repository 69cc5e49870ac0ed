#pragma once

#include "foundation/KeyValueObservation.hpp"
#include "foundation/ObservableObject.hpp"
#include "sparkle/SPUStandardUpdaterController.hpp"

#include <array>
#include <memory>

namespace QEVSettings {

// The settings of the software updater as values that views can show and edit.
//
// The host creates one before it opens the settings window, and keeps it as long as updates are to
// be looked for: the updater starts with it, in the configuration that the host made the standard.
// Main thread.
//
// The published values follow the updater and are never written back to it by the model. A view
// that lets a person change one of them hands the new value to `updaterController().updater()`,
// once, when the value has changed.
class UpdaterViewModel final : public foundation::ObservableObject {
public:
  UpdaterViewModel();

  sparkle::SPUStandardUpdaterController& updaterController() const { return *updaterController_; }

  // Whether a check can begin now.
  foundation::Published<bool> canCheckForUpdates{*this, false};
  foundation::Published<bool> automaticallyChecksForUpdates{*this, false};
  foundation::Published<bool> automaticallyDownloadUpdates{*this, false};
  // Whether checks tell an anonymous system profile.
  foundation::Published<bool> sendSystemProfile{*this, false};

  // Asks for a check on a later turn of the main queue, and returns at once. Nothing comes of it
  // when the model is gone by then.
  void checkForUpdates();

private:
  std::shared_ptr<sparkle::SPUStandardUpdaterController> updaterController_;
  std::array<foundation::Subscription, 4> observations_;
};

}  // namespace QEVSettings
