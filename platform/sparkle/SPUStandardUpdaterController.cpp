// SPDX-License-Identifier: MIT
#include "sparkle/SPUStandardUpdaterController.hpp"

#include <utility>

namespace sparkle {

SPUStandardUpdaterController::SPUStandardUpdaterController(
    bool startingUpdater, std::weak_ptr<SPUUpdaterDelegate> updaterDelegate,
    std::weak_ptr<SPUStandardUserDriverDelegate> userDriverDelegate)
    : updater_(UpdaterConfiguration::standard(), std::move(updaterDelegate),
               std::move(userDriverDelegate)) {
  if (startingUpdater) updater_.start();
}

void SPUStandardUpdaterController::checkForUpdates(const void* /*sender*/) {
  updater_.checkForUpdates();
}

}  // namespace sparkle
