#pragma once

#include "sparkle/SPUUpdater.hpp"

#include <memory>

namespace sparkle {

// Owns the application's updater, together with the standard user interface that the host has set
// in UpdaterConfiguration::standard(). Main thread.
class SPUStandardUpdaterController {
public:
  // Starts the updater at once where `startingUpdater` says so. The delegates may be empty, and may
  // go at any time.
  SPUStandardUpdaterController(bool startingUpdater,
                               std::weak_ptr<SPUUpdaterDelegate> updaterDelegate,
                               std::weak_ptr<SPUStandardUserDriverDelegate> userDriverDelegate);

  // The same one for as long as the controller lives.
  SPUUpdater& updater() { return updater_; }
  const SPUUpdater& updater() const { return updater_; }

  // What a button or a menu item calls. Who sends it makes no difference; nullptr for nobody.
  void checkForUpdates(const void* sender);

private:
  SPUUpdater updater_;
};

}  // namespace sparkle
