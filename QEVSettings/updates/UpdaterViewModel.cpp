// SPDX-License-Identifier: MIT
#include "QEVSettings/UpdaterViewModel.hpp"

#include "foundation/MainQueue.hpp"

namespace QEVSettings {

using foundation::ObservingOptions;
using foundation::Published;
using sparkle::SPUStandardUpdaterController;

UpdaterViewModel::UpdaterViewModel()
    : updaterController_(std::make_shared<SPUStandardUpdaterController>(
          true, std::weak_ptr<sparkle::SPUUpdaterDelegate>(),
          std::weak_ptr<sparkle::SPUStandardUserDriverDelegate>())) {
  constexpr auto kOptions = ObservingOptions::initial | ObservingOptions::newValue;
  const auto assignTo = [](Published<bool>& published) {
    return [&published](bool value) { published = value; };
  };
  auto& updater = updaterController_->updater();
  observations_ = {
      updater.observeCanCheckForUpdates(kOptions, assignTo(canCheckForUpdates)),
      updater.observeAutomaticallyChecksForUpdates(kOptions,
                                                   assignTo(automaticallyChecksForUpdates)),
      updater.observeAutomaticallyDownloadsUpdates(kOptions,
                                                   assignTo(automaticallyDownloadUpdates)),
      updater.observeSendsSystemProfile(kOptions, assignTo(sendSystemProfile)),
  };
}

void UpdaterViewModel::checkForUpdates() {
  foundation::MainQueue::mainQueue().async([controller = std::weak_ptr(updaterController_)] {
    if (const auto alive = controller.lock()) alive->checkForUpdates(nullptr);
  });
}

}  // namespace QEVSettings
