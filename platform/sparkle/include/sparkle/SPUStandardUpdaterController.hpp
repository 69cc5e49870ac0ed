// SPDX-License-Identifier: MIT
#pragma once

#include "sparkle/SPUUpdater.hpp"

#include <memory>

namespace sparkle {

// Owns the updater of the application. It works with UpdaterConfiguration::standard(), which the
// host sets before. Main thread only.
//
//     SPUStandardUpdaterController controller(true, {}, {});
//     controller.checkForUpdates(nullptr);
class SPUStandardUpdaterController {
public:
  // Starts the updater when `startingUpdater` is true. The delegates may be empty and may be
  // destroyed at any time.
  SPUStandardUpdaterController(bool startingUpdater,
                               std::weak_ptr<SPUUpdaterDelegate> updaterDelegate,
                               std::weak_ptr<SPUStandardUserDriverDelegate> userDriverDelegate);

  // The same updater for as long as the controller lives.
  SPUUpdater& updater() { return updater_; }
  const SPUUpdater& updater() const { return updater_; }

  // Called by a button or a menu item. `sender` is ignored and may be null.
  void checkForUpdates(const void* sender);

private:
  SPUUpdater updater_;
};

}  // namespace sparkle
